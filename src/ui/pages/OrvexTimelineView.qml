import QtQuick
import Orvex

// What the host says of its sequence, and the moves of its playhead.
OrvexScrollPage {
    id: page

    required property OrvexState state
    readonly property bool available: page.state.host.sequenceAvailable
    readonly property bool steppable: page.available && page.state.host.frameDurationSeconds > 0

    signal moveStart
    signal moveEnd
    // Below 0 for backwards.
    signal moveSeconds(seconds: real)
    // Below 0 for backwards.
    signal moveFrames(count: int)
    signal refresh

    OrvexSectionTitle {
        eyebrow: "ORVEX TIMELINE"
        title: "Timeline Control"
        subtitle: "Apple Workflow SDK ile gerçek timeline ve playhead kontrolü"
    }

    OrvexAdaptiveGrid {
        minimumWidth: 145
        spacing: OrvexTheme.gridSpacing

        OrvexMetric {
            label: "Sequence"
            value: page.state.host.sequenceName
        }

        OrvexMetric {
            label: "Playhead"
            value: OrvexFormat.timecode(page.state.host.playheadSeconds)
        }

        OrvexMetric {
            label: "Duration"
            value: OrvexFormat.timecode(page.state.host.sequenceDurationSeconds)
        }

        OrvexMetric {
            label: "Start"
            value: OrvexFormat.seconds2(page.state.host.sequenceStartSeconds)
        }

        OrvexMetric {
            label: "End"
            value: OrvexFormat.seconds2(page.state.host.sequenceStartSeconds + page.state.host.sequenceDurationSeconds)
        }

        OrvexMetric {
            label: "FPS"
            value: OrvexFormat.rate(page.state.host.fps)
        }
    }

    OrvexAdaptiveGrid {
        minimumWidth: 210
        spacing: OrvexTheme.gridSpacing

        OrvexToolCard {
            icon: "backward.end.fill"
            title: "Sequence Start"
            subtitle: "Timeline başlangıcına git"
            badge: "REAL"
            enabled: page.available
            onClicked: page.moveStart()
        }

        OrvexToolCard {
            icon: "forward.end.fill"
            title: "Sequence End"
            subtitle: "Timeline sonuna git"
            badge: "REAL"
            enabled: page.available
            onClicked: page.moveEnd()
        }

        OrvexToolCard {
            icon: "backward.frame.fill"
            title: "-1 Frame"
            subtitle: page.steppable ? "Bir kare geri" : "frameDuration bekleniyor"
            badge: "REAL"
            enabled: page.steppable
            onClicked: page.moveFrames(-1)
        }

        OrvexToolCard {
            icon: "forward.frame.fill"
            title: "+1 Frame"
            subtitle: page.steppable ? "Bir kare ileri" : "frameDuration bekleniyor"
            badge: "REAL"
            enabled: page.steppable
            onClicked: page.moveFrames(1)
        }

        OrvexToolCard {
            icon: "gobackward"
            title: "-1 Second"
            subtitle: "Bir saniye geri"
            badge: "REAL"
            enabled: page.available
            onClicked: page.moveSeconds(-1)
        }

        OrvexToolCard {
            icon: "goforward"
            title: "+1 Second"
            subtitle: "Bir saniye ileri"
            badge: "REAL"
            enabled: page.available
            onClicked: page.moveSeconds(1)
        }
    }

    OrvexPrimaryButton {
        title: "Timeline bilgisini yenile"
        icon: "arrow.clockwise"
        onClicked: page.refresh()
    }

    Shortcut {
        sequence: "Left"
        enabled: page.steppable
        onActivated: page.moveFrames(-1)
    }

    Shortcut {
        sequence: "Right"
        enabled: page.steppable
        onActivated: page.moveFrames(1)
    }

    Shortcut {
        sequence: "Home"
        enabled: page.available
        onActivated: page.moveStart()
    }

    Shortcut {
        sequence: "End"
        enabled: page.available
        onActivated: page.moveEnd()
    }
}
