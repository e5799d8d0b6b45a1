import QtQuick
import Orvex

// The entry of one page in the navigation, in its wide or compact form.
OrvexPressable {
    id: button

    required property orvexPage page
    required property bool compact
    required property bool selected
    // Whether its key is taken.
    required property bool armed

    readonly property real cornerRadius: 10
    readonly property real emphasis: Math.max(0, Math.min(1, selection.value))

    objectName: "navigation " + button.page.id
    horizontalPadding: button.compact ? 10 : 11
    verticalPadding: button.compact ? 8 : 10

    Accessible.role: Accessible.PageTab
    Accessible.name: button.page.title
    Accessible.selectable: true
    Accessible.selected: button.selected

    Loader {
        asynchronous: true
        Component.onCompleted: setSource("OrvexPageShortcut.qml", {
            button: button
        })
        active: button.armed
    }

    OrvexSpring {
        id: selection

        to: button.selected ? 1 : 0
        response: 0.34
        dampingFraction: 0.8
    }

    background: Item {
        OrvexShadow {
            anchors.fill: parent
            visible: button.emphasis > 0
            opacity: button.emphasis
            radius: button.cornerRadius
            blurRadius: 7
            color: OrvexTheme.fade(OrvexTheme.blue, 0.24)
        }

        Rectangle {
            anchors.fill: parent
            opacity: button.emphasis
            radius: button.cornerRadius
            color: OrvexTheme.fade(OrvexTheme.blue, 0.16)
            border.width: 1
            border.color: button.compact ? OrvexTheme.fade(OrvexTheme.cyan, 0.42) : OrvexTheme.fade(OrvexTheme.blue, 0.25)
        }

        Rectangle {
            anchors.fill: parent
            visible: button.hovered
            radius: button.cornerRadius
            color: OrvexTheme.fade(OrvexTheme.text, button.pressed ? 0.08 : 0.04)
        }
    }

    contentItem: Row {
        spacing: button.compact ? 6 : 9

        Item {
            width: button.compact ? 14 : 18
            height: title.height

            OrvexSymbol {
                anchors.centerIn: parent
                name: button.page.icon
                size: button.compact ? 14 : 17
                color: button.selected ? OrvexTheme.cyan : OrvexTheme.muted
            }
        }

        OrvexText {
            id: title

            Accessible.ignored: true
            text: button.page.title
            size: button.compact ? 9 : 10
            weight: Font.Bold
            color: button.selected ? OrvexTheme.text : OrvexTheme.muted
        }
    }

    OrvexFocusRing {
        targetRadius: button.cornerRadius
        shown: button.visualFocus
    }
}
