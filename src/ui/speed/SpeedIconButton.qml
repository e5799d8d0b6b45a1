import QtQuick
import Orvex

// A small button that is nothing but its symbol; its title is what assistive technology reads.
OrvexPressable {
    id: button

    required property string title
    required property string icon

    Accessible.name: title
    opacity: enabled ? pressed ? OrvexTheme.pressedOpacity : 1 : OrvexTheme.disabledOpacity
    padding: 6

    background: Rectangle {
        color: button.hovered ? OrvexTheme.fade(OrvexTheme.cyan, 0.13) : "transparent"
        radius: OrvexTheme.chipRadius
    }
    contentItem: OrvexSymbol {
        name: button.icon
        size: 15
    }

    OrvexToolTip {
        text: button.title
        visible: button.hovered
    }

    OrvexFocusRing {
        targetRadius: OrvexTheme.chipRadius
        shown: button.visualFocus
    }
}
