import QtQuick
import Orvex

/// How far something is, from 0 to `total`. With a `total` of 0 nobody knows: a piece wanders, where
/// things may move.
Item {
    id: bar

    /// What goes on, for who cannot see it.
    required property string name
    property real done: 0
    property real total: 0
    property color color: OrvexTheme.cyan

    readonly property bool known: total > 0
    readonly property real part: known ? Math.max(0, Math.min(1, done / total)) : 0
    property real phase: 0.5

    Accessible.name: known ? name + ", " + Math.floor(100 * part) + " %" : name
    Accessible.role: Accessible.ProgressBar
    implicitHeight: 4
    implicitWidth: 80

    Rectangle {
        anchors.fill: parent
        color: OrvexTheme.fade(OrvexTheme.text, 0.09)
        radius: height / 2
    }

    Rectangle {
        color: bar.color
        height: bar.height
        radius: height / 2
        visible: width > 0
        width: bar.known ? Math.max(bar.part > 0 ? height : 0, Math.round(bar.width * bar.part)) : Math.round(bar.width * 0.28)
        x: bar.known ? 0 : Math.round((bar.width - width) * bar.phase)
    }

    // Thirty steps a second, like the backdrop.
    Timer {
        property real time: 0

        interval: 33
        repeat: true
        running: bar.visible && bar.opacity > 0 && !bar.known && bar.OrvexMotion.animated

        onTriggered: {
            time += 0.033;
            bar.phase = 0.5 - 0.5 * Math.cos(2.4 * time);
        }
    }
}
