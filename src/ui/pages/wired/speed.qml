import Orvex.Pages

OrvexSpeedRampView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
    onPerform: action => page.view.hostAdapter.performTimelineAction(action)
}
