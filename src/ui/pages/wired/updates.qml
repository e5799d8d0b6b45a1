import Orvex.Pages

OrvexUpdateCenterView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
    onOpenPage: url => page.view.desktop.openPage(url)
}
