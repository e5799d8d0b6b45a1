import Orvex
import Orvex.Pages

OrvexMotionView {
    id: page

    required property OrvexPageSwitch view

    registry: page.view.motion
    onRefused: reason => page.view.state.showToast(reason, OrvexToast.Error, 5.0)
    onReveal: file => page.view.desktop.reveal(file)
}
