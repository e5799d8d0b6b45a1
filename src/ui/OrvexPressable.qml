import QtQuick
import Orvex

/// Anything that can be pressed, by mouse, by Space, Return or Enter, and by assistive technology.
/// Its look is its `contentItem`.
OrvexControl {
    id: control

    readonly property bool pressed: mouse.pressed && mouse.containsMouse || keyHeld
    property bool keyHeld: false

    signal clicked

    function isPressKey(key: int): bool {
        return key === Qt.Key_Space || key === Qt.Key_Return || key === Qt.Key_Enter;
    }

    Accessible.focusable: true
    Accessible.role: Accessible.Button
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    // The toolkit passes it on to what is disabled, too.
    Accessible.onPressAction: if (control.enabled)
        control.clicked()
    Keys.onPressed: event => {
        // What is hidden can still have the focus, where that came from somewhere else.
        if (!control.visible || !control.isPressKey(event.key))
            return;
        event.accepted = true;
        if (!event.isAutoRepeat)
            control.keyHeld = true;
    }
    Keys.onReleased: event => {
        if (!control.isPressKey(event.key) || event.isAutoRepeat || !control.keyHeld)
            return;
        event.accepted = true;
        control.keyHeld = false;
        control.clicked();
    }
    onActiveFocusChanged: keyHeld = false

    MouseArea {
        id: mouse

        anchors.fill: parent
        z: 1

        onClicked: control.clicked()
        onPressed: control.forceActiveFocus(Qt.MouseFocusReason)
    }
}
