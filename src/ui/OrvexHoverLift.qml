import QtQuick
import Orvex

/// Lifts its content a little while the pointer is over it. Whoever uses it watches the pointer over
/// an item that stays where it is: the content moves away from under it.
Item {
    id: lift

    property bool hovering: false
    property bool pressed: false
    /// Of the shape that throws the shadow.
    property real radius: OrvexTheme.panelRadius
    default property alias content: content.data

    implicitHeight: content.children.length > 0 ? content.children[0].implicitHeight : 0
    implicitWidth: content.children.length > 0 ? content.children[0].implicitWidth : 0
    scale: 1 + 0.012 * spring.value

    transform: Translate {
        y: -2 * spring.value
    }

    OrvexSpring {
        id: spring

        dampingFraction: 0.78
        response: 0.28
        to: lift.hovering ? 1 : 0
    }

    OrvexShadow {
        blurRadius: 16
        color: OrvexTheme.fade(OrvexTheme.cyan, 0.13)
        height: lift.height
        opacity: Math.min(1, spring.value)
        radius: lift.radius
        visible: opacity > 0
        width: lift.width
        y: 7
    }

    Item {
        id: content

        anchors.fill: parent
        opacity: lift.pressed ? OrvexTheme.pressedOpacity : 1
    }
}
