import QtQuick
import Orvex
import Orvex.Color
import Orvex.Pages

// Shows the active page over the backdrop. Every switch builds the page anew, so that what a page
// keeps for itself starts over.
Item {
    id: view

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug
    required property FinalCutHostAdapter hostAdapter
    required property ColorServices colorServices
    required property OrvexDesktop desktop
    required property bool active
    required property real contentTopPadding

    readonly property string pageId: view.state.activePage.id
    readonly property Item page: loader.item as Item

    function component(id: string): Component {
        switch (id) {
        case "timeline":
            return timeline;
        case "speed":
            return speed;
        case "motion":
            return motionPage;
        case "audio":
            return audioPage;
        case "color":
            return color;
        case "fxplug":
            return fxplugPage;
        case "updates":
            return updates;
        case "request":
            return request;
        }
        return home;
    }

    clip: true
    Accessible.role: Accessible.Pane
    Accessible.name: view.state.activePage.title
    onPageIdChanged: {
        entrance.jump(0);
        entrance.to = 1;
    }

    OrvexAnimatedBackdrop {
        anchors.fill: parent
    }

    OrvexSpring {
        id: entrance

        to: 1
        response: 0.42
        dampingFraction: 0.78
    }

    Loader {
        id: loader

        active: view.active
        width: view.width
        height: view.height - view.contentTopPadding
        y: view.contentTopPadding + 14 * (1 - entrance.value)
        opacity: Math.max(0, Math.min(1, entrance.value))
        sourceComponent: view.component(view.pageId)
    }

    // The toolkit's Loader cannot make bound components, so these are not, and the linter does not know
    // the identifiers in them.
    // qmllint disable unqualified
    Component {
        id: home

        OrvexHomeView {
            state: view.state
            motion: view.motion
            audio: view.audio
            luts: view.luts
            fxplug: view.fxplug
            onRefreshHost: view.hostAdapter.refresh("home")
        }
    }

    Component {
        id: timeline

        OrvexTimelineView {
            state: view.state
            onMoveStart: view.hostAdapter.moveToStart()
            onMoveEnd: view.hostAdapter.moveToEnd()
            onMoveSeconds: seconds => view.hostAdapter.moveBy(seconds)
            onMoveFrames: count => view.hostAdapter.moveByFrames(count)
            onRefresh: view.hostAdapter.refresh("timeline")
        }
    }

    Component {
        id: speed

        OrvexSpeedRampView {
            state: view.state
            onPerform: action => view.hostAdapter.performTimelineAction(action)
        }
    }

    Component {
        id: motionPage

        OrvexMotionView {
            registry: view.motion
            onRefused: reason => view.state.showToast(reason, OrvexToast.Error, 5.0)
            onRevealFile: file => view.desktop.reveal(file)
        }
    }

    Component {
        id: audioPage

        OrvexAudioView {
            registry: view.audio
            onCopied: view.state.showToast("Audio Unit bilgileri kopyalandı.", OrvexToast.Success, 3.2)
        }
    }

    Component {
        id: color

        OrvexColorView {
            state: view.state
            registry: view.luts
            color: view.colorServices
            onReveal: file => view.desktop.reveal(file)
        }
    }

    Component {
        id: fxplugPage

        OrvexFxPlugView {
            registry: view.fxplug
            onRefused: reason => view.state.showToast(reason, OrvexToast.Error, 5.0)
            onRevealFile: file => view.desktop.reveal(file)
        }
    }

    Component {
        id: updates

        OrvexUpdateCenterView {
            state: view.state
            onOpenPage: url => view.desktop.openPage(url)
        }
    }

    Component {
        id: request

        OrvexRequestCenterView {
            state: view.state
        }
    }
    // qmllint enable unqualified
}
