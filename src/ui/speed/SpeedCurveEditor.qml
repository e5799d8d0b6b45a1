pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Speed

// The curve with its two control points, which can be dragged, and a marker that runs along it.
Item {
    id: editor

    required property SpeedCurveEditing editing
    // What is drawn: the edited curve, or one on its way there after a preset was chosen.
    property alias curve: drawing.curve

    Accessible.name: "Hız eğrisi düzenleyicisi"
    Accessible.role: Accessible.Grouping
    clip: true

    OrvexSurface {
        anchors.fill: parent
        endColor: Qt.rgba(0, 0, 0, 0.24)
        outlineColor: "transparent"
        radius: OrvexTheme.tileRadius
        startColor: Qt.rgba(0, 0, 0, 0.24)
    }

    SpeedCurveCanvas {
        id: drawing

        anchors.fill: parent
        color: OrvexTheme.cyan
        cornerRadius: OrvexTheme.tileRadius
        objectName: "canvas"
        startColor: OrvexTheme.blue
    }

    SpeedCurveDisc {
        id: marker

        // Milliseconds. 2001 began a whole number of periods after 1970: counted from either, the
        // marker is at the same place.
        readonly property real period: 1800
        property real phase: 0
        readonly property point place: marker.placeAt(marker.phase, drawing.curve, drawing.width, drawing.height)

        // The curve and the size are arguments so that the place follows them too.
        function placeAt(phase: real, curve: var, width: real, height: real): point {
            return drawing.pointAt(phase);
        }

        color: OrvexTheme.success
        cornerRadius: drawing.cornerRadius
        height: 10
        objectName: "marker"
        radius: 5
        shape: Qt.rect(-marker.x, -marker.y, drawing.width, drawing.height)
        visible: editor.OrvexMotion.animated
        width: 10
        x: marker.place.x - 5
        y: marker.place.y - 5

        Timer {
            interval: 33
            repeat: true
            running: editor.OrvexMotion.animated && editor.visible

            onTriggered: marker.phase = (Date.now() % marker.period) / marker.period
        }
    }

    // One for both handles, as they can lie on each other: a press takes the nearer one, or the upper.
    MouseArea {
        property SpeedCurveHandle held: null

        function drop(): void {
            held = null;
            editor.editing.endGesture();
        }

        anchors.fill: parent
        preventStealing: true

        onCanceled: drop()
        onPositionChanged: mouse => held.dragTo(Qt.point(mouse.x, mouse.y))
        onPressed: mouse => {
            const place = Qt.point(mouse.x, mouse.y);
            const [lower, upper] = [handles.itemAt(0), handles.itemAt(1)];
            const nearer = lower.distanceTo(place) < upper.distanceTo(place) ? lower : upper;
            mouse.accepted = nearer.distanceTo(place) <= nearer.reach;
            if (!mouse.accepted)
                return;
            held = nearer;
            held.forceActiveFocus(Qt.MouseFocusReason);
            held.dragTo(place);
        }
        onReleased: drop()
    }

    Repeater {
        id: handles

        model: 2

        SpeedCurveHandle {
            canvas: drawing
            editing: editor.editing
            objectName: "handle" + index
        }
    }
}
