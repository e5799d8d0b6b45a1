import QtQuick
import Orvex

/// A button that is nothing but its title.
OrvexPressable {
    id: button

    required property string title
    property int size: 9
    property int weight: Font.Bold
    property color color: OrvexTheme.cyan

    Accessible.name: title
    opacity: enabled ? 1 : OrvexTheme.disabledOpacity
    verticalPadding: 4

    contentItem: OrvexText {
        Accessible.ignored: true
        color: button.color
        font.underline: button.hovered
        opacity: button.pressed ? OrvexTheme.pressedOpacity : 1
        size: button.size
        text: button.title
        weight: button.weight
    }

    OrvexFocusRing {
        targetRadius: 3
        shown: button.visualFocus
    }
}
