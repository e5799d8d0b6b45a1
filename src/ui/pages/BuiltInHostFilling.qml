import QtQuick
import Orvex.Pages

// What the strip of the built-in host shows. A file of its own, so that it is read when it is wanted.
FocusScope {
    id: filling

    required property BuiltInHostStrip strip

    focus: true

    BuiltInHostControls {
        x: 12
        y: 8
        width: parent.width - 2 * x
        height: 30
        host: filling.strip.host
        onPlayToggled: filling.strip.togglePlaying()
    }

    BuiltInHostTimeline {
        objectName: "timeline"
        x: 12
        y: 44
        width: parent.width - 2 * x
        height: parent.height - y - 10
        focus: true
        host: filling.strip.host
    }
}
