import QtQuick
import Orvex

/// One of several things to do: a title, with an icon before it where one is given. Without a title
/// it is the icon alone, told by its `name`.
OrvexPressable {
    id: button

    property string title
    property string icon
    property string name: title
    property color ink: OrvexTheme.cyan

    Accessible.name: name
    bottomPadding: 7
    leftPadding: title.length > 0 ? 12 : 8
    opacity: enabled ? 1 : OrvexTheme.disabledOpacity
    rightPadding: leftPadding
    topPadding: 7

    background: Rectangle {
        border.color: OrvexTheme.fade(button.ink, button.hovered ? 0.5 : 0.28)
        color: OrvexTheme.fade(button.ink, button.pressed ? 0.24 : button.hovered ? 0.17 : 0.11)
        radius: 9
    }
    contentItem: Item {
        implicitHeight: Math.max(symbol.visible ? symbol.implicitHeight : 0, label.implicitHeight)
        // Not the row's, which follows the room that there is.
        implicitWidth: (symbol.visible ? symbol.implicitWidth + row.spacing : 0) + Math.ceil(label.implicitWidth)

        Row {
            id: row

            anchors.centerIn: parent
            spacing: button.title.length > 0 && button.icon.length > 0 ? 6 : 0

            OrvexSymbol {
                id: symbol

                anchors.verticalCenter: parent.verticalCenter
                color: button.ink
                name: button.icon.length > 0 ? button.icon : "xmark"
                size: 14
                visible: button.icon.length > 0
            }

            OrvexText {
                id: label

                Accessible.ignored: true
                anchors.verticalCenter: parent.verticalCenter
                color: button.ink
                size: 10
                text: button.title
                visible: text.length > 0
                weight: Font.Bold
                width: Math.min(implicitWidth, button.availableWidth - (symbol.visible ? symbol.width + row.spacing : 0))
            }
        }
    }

    OrvexFocusRing {
        targetRadius: 9
        shown: button.visualFocus
    }

    OrvexToolTip {
        text: button.name
        visible: button.hovered && (button.title.length === 0 || label.truncated)
    }
}
