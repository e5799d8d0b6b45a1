import Orvex.Pages

OrvexTimelineView {
    id: page

    required property OrvexPageSwitch view

    state: page.view.state
    onMoveStart: page.view.hostAdapter.moveToStart()
    onMoveEnd: page.view.hostAdapter.moveToEnd()
    onMoveSeconds: seconds => page.view.hostAdapter.moveBy(seconds)
    onMoveFrames: count => page.view.hostAdapter.moveByFrames(count)
    onRefresh: page.view.hostAdapter.refresh("timeline")
}
