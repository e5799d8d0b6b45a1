import QtQuick
import Orvex
import Orvex.Pages

// One control point of the curve editor: a disc that is dragged, or moved with the arrow keys.
Item {
    id: handle

    required property SpeedCurveEditing editing
    required property SpeedCurveCanvas canvas
    // 0 or 1.
    required property int index
    readonly property real valueX: editing.curve[2 * index]
    readonly property real valueY: editing.curve[2 * index + 1]

    // The drawn position, which a spring may be carrying to the value's.
    x: canvas.width * canvas.curve[2 * index] - width / 2
    y: canvas.height * (1 - canvas.curve[2 * index + 1]) - height / 2
    width: 18
    height: 18
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Kontrol noktası %1: x %2, y %3").arg(index + 1).arg(valueX.toFixed(2)).arg(valueY.toFixed(2))
    Accessible.focusable: true
    Accessible.onIncreaseAction: nudge(0, 0.01)
    Accessible.onDecreaseAction: nudge(0, -0.01)

    function nudge(dx: real, dy: real): void {
        handle.editing.moveControlPoint(handle.index, handle.valueX + dx, handle.valueY + dy);
        handle.editing.endGesture();
    }

    function dragTo(position: point): void {
        handle.editing.moveControlPoint(handle.index, position.x / Math.max(handle.canvas.width, 1),
                                        1 - position.y / Math.max(handle.canvas.height, 1));
    }

    function step(event: KeyEvent): real {
        return event.modifiers & Qt.ShiftModifier ? 0.1 : 0.01;
    }

    Keys.onLeftPressed: event => handle.nudge(-handle.step(event), 0)
    Keys.onRightPressed: event => handle.nudge(handle.step(event), 0)
    Keys.onUpPressed: event => handle.nudge(0, handle.step(event))
    Keys.onDownPressed: event => handle.nudge(0, -handle.step(event))
}
