import Orvex.Pages

OrvexRequestCenterView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
}
