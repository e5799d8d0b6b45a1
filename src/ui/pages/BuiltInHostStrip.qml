import QtQuick
import QtQuick.Window
import Orvex
import Orvex.Pages

// The built-in host as its user sees it: a small, calm editor below the panel, with the sequence,
// its playhead and what the timeline commands did.
FocusScope {
    id: strip

    required property BuiltInHost host

    function togglePlaying(): void {
        strip.host.playing = !strip.host.playing;
    }

    implicitWidth: 360
    implicitHeight: 132

    Accessible.role: Accessible.Pane
    Accessible.name: "Dahili host kurgusu"
    Keys.onSpacePressed: event => {
        if (!event.isAutoRepeat)
            strip.togglePlaying();
    }

    Rectangle {
        anchors.fill: parent
        color: OrvexTheme.mix(OrvexTheme.sidebar, OrvexTheme.text, 0.045)

        Rectangle {
            width: parent.width
            height: 1
            color: OrvexTheme.fade(OrvexTheme.text, 0.12)
        }
    }

    // The panel comes first: the strip is filled when the window's first frame is on screen, and not
    // while the window is still handing it over.
    Connections {
        target: strip.Window.window
        enabled: !content.active
        function onFrameSwapped(): void {
            handedOver.start();
        }
    }

    Timer {
        id: handedOver

        interval: 0
        onTriggered: content.active = true
    }

    Loader {
        id: content

        active: false
        anchors.fill: parent
        focus: true
        sourceComponent: filling
    }

    // The toolkit's Loader cannot make bound components, so this one is not, and the linter does not
    // know the identifiers in it.
    // qmllint disable unqualified
    Component {
        id: filling

        FocusScope {
            focus: true

            BuiltInHostControls {
                x: 12
                y: 8
                width: parent.width - 2 * x
                height: 30
                host: strip.host
                onPlayToggled: strip.togglePlaying()
            }

            BuiltInHostTimeline {
                objectName: "timeline"
                x: 12
                y: 44
                width: parent.width - 2 * x
                height: parent.height - y - 10
                focus: true
                host: strip.host
            }
        }
    }
    // qmllint enable unqualified
}
