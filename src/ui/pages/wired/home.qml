import Orvex.Pages

OrvexHomeView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
    motion: page.view.motion
    audio: page.view.audio
    luts: page.view.luts
    fxplug: page.view.fxplug
    onRefreshHost: page.view.hostAdapter.refresh("home")
}
