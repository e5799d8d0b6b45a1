import Orvex.Pages

OrvexColorView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
    registry: page.view.luts
    color: page.view.colorServices
    onReveal: file => page.view.desktop.reveal(file)
}
