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
    Accessible.name: "Yerleşik host kurgusu"
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

    // The panel comes first: the files of what fills the strip are read, and it is filled, when the
    // window's first frame is on screen, and not while the window is still handing it over.
    Connections {
        target: strip.Window.window
        enabled: content.item === null
        function onFrameSwapped(): void {
            handedOver.start();
        }
    }

    Timer {
        id: handedOver

        interval: 0
        onTriggered: content.setSource("BuiltInHostFilling.qml", {
            strip: strip
        })
    }

    Loader {
        id: content

        anchors.fill: parent
        focus: true
    }
}
