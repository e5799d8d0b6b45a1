pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// The curve with its two control points, which can be dragged, and a marker that runs along it.
Item {
    id: editor

    required property SpeedCurveEditing editing
    // What is drawn: the edited curve, or on its way there after a preset was chosen.
    property alias curve: canvas.curve

    implicitHeight: 260
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Hız eğrisi düzenleyicisi")

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Qt.rgba(0, 0, 0, 0.24)
    }

    SpeedCurveCanvas {
        id: canvas

        anchors.fill: parent
        color: OrvexTheme.cyan
        startColor: OrvexTheme.blue
    }

    Rectangle {
        id: marker

        // Seconds from 1970 to the reference date, 2001-01-01 00:00 UTC.
        readonly property int referenceDate: 978307200
        readonly property real period: 1.8
        property real phase: 0
        readonly property point position: marker.at(marker.phase, canvas.curve, canvas.width, canvas.height)

        // The curve and the size are arguments so that the position follows them.
        function at(phase: real, curve: var, width: real, height: real): point {
            return canvas.pointAt(phase);
        }

        width: 10
        height: 10
        radius: 5
        x: marker.position.x - 5
        y: marker.position.y - 5
        color: OrvexTheme.success

        Timer {
            interval: 33
            repeat: true
            running: editor.OrvexMotion.animated && editor.visible
            onTriggered: marker.phase = ((Date.now() / 1000 - marker.referenceDate) % marker.period) / marker.period
        }
    }

    Repeater {
        model: 2

        SpeedCurveHandle {
            editing: editor.editing
            canvas: canvas
        }
    }
}
