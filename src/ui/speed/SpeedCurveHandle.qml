import QtQuick
import Orvex
import Orvex.Speed

// One control point of the curve editor: a disc that is dragged, or moved with the arrow keys by a
// hundredth, with Shift by a tenth.
OrvexControl {
    id: handle

    required property SpeedCurveEditing editing
    required property SpeedCurveCanvas canvas
    // 0 or 1.
    required property int index

    readonly property real valueX: handle.editing.curve[2 * handle.index]
    readonly property real valueY: handle.editing.curve[2 * handle.index + 1]

    // From its centre, where a press takes hold of it: a disc of 18 points is hard to hit.
    readonly property real reach: 15

    // What the toolkit tells assistive technology of a slider, by these names.
    readonly property real value: handle.valueX
    readonly property real minimumValue: 0
    readonly property real maximumValue: 1
    readonly property real stepSize: 0.01

    function nudge(dx: real, dy: real): void {
        handle.editing.moveControlPoint(handle.index, handle.valueX + dx, handle.valueY + dy);
        handle.editing.endGesture();
    }

    function distanceTo(place: point): real {
        return Math.hypot(place.x - handle.x - handle.width / 2, place.y - handle.y - handle.height / 2);
    }

    function dragTo(place: point): void {
        handle.editing.moveControlPoint(handle.index, place.x / Math.max(handle.canvas.width, 1), 1 - place.y / Math.max(handle.canvas.height, 1));
    }

    function stepOf(modifiers: int): real {
        return modifiers & Qt.ShiftModifier ? 0.1 : 0.01;
    }

    Accessible.focusable: true
    Accessible.name: "Kontrol noktası " + (handle.index + 1)
    Accessible.description: "x " + handle.valueX.toFixed(2) + ", y " + handle.valueY.toFixed(2)
    Accessible.role: Accessible.Slider
    implicitHeight: 18
    implicitWidth: 18
    x: handle.canvas.width * handle.canvas.curve[2 * handle.index] - handle.width / 2
    y: handle.canvas.height * (1 - handle.canvas.curve[2 * handle.index + 1]) - handle.height / 2

    Accessible.onDecreaseAction: handle.nudge(-0.01, 0)
    Accessible.onIncreaseAction: handle.nudge(0.01, 0)
    Keys.onDownPressed: event => handle.nudge(0, -handle.stepOf(event.modifiers))
    Keys.onLeftPressed: event => handle.nudge(-handle.stepOf(event.modifiers), 0)
    Keys.onRightPressed: event => handle.nudge(handle.stepOf(event.modifiers), 0)
    Keys.onUpPressed: event => handle.nudge(0, handle.stepOf(event.modifiers))

    SpeedCurveDisc {
        id: disc

        anchors.centerIn: parent
        color: OrvexTheme.text
        cornerRadius: handle.canvas.cornerRadius
        glowColor: OrvexTheme.fade(OrvexTheme.cyan, 0.45)
        glowRadius: 8
        height: 42
        outlineColor: OrvexTheme.cyan
        outlineWidth: 3
        radius: 9
        shape: Qt.rect(-handle.x - disc.x, -handle.y - disc.y, handle.canvas.width, handle.canvas.height)
        width: 42
    }

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
        margin: handle.reach - handle.width / 2
    }

    // Apart from the disc's outline, which has its colour.
    OrvexFocusRing {
        anchors.margins: -7
        radius: width / 2
        shown: handle.visualFocus
    }
}
