pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Orvex

// A choice from a list of texts.
T.ComboBox {
    id: picker

    // What is chosen, for who cannot see it.
    required property string name

    implicitWidth: 120
    implicitHeight: 30
    leftPadding: 10
    rightPadding: 28
    hoverEnabled: true
    Accessible.name: picker.name
    // The toolkit opens it with Space only.
    Keys.onReleased: event => {
        if (picker.popup.visible || event.isAutoRepeat || event.modifiers !== Qt.NoModifier && event.modifiers !== Qt.KeypadModifier)
            return;
        event.accepted = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
        if (event.accepted)
            picker.popup.open();
    }

    background: Rectangle {
        radius: 9
        color: OrvexTheme.fade(OrvexTheme.text, picker.pressed ? 0.14 : picker.hovered ? 0.1 : 0.06)
        border.width: 1
        border.color: OrvexTheme.fade(OrvexTheme.text, 0.1)

        OrvexFocusRing {
            targetRadius: 9
            shown: picker.visualFocus
        }
    }

    contentItem: OrvexText {
        Accessible.ignored: true
        verticalAlignment: Text.AlignVCenter
        text: picker.displayText
        size: 10
        weight: Font.Medium
    }

    indicator: OrvexSymbol {
        x: picker.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.right"
        rotation: 90
        size: 14
        color: OrvexTheme.muted
    }

    delegate: T.ItemDelegate {
        id: choice

        required property int index
        required property string modelData

        width: ListView.view.width
        height: 28
        highlighted: picker.highlightedIndex === index
        Accessible.name: modelData

        background: Rectangle {
            radius: 6
            color: choice.highlighted ? OrvexTheme.fade(OrvexTheme.blue, 0.22) : "transparent"
        }

        contentItem: OrvexText {
            Accessible.ignored: true
            leftPadding: 8
            verticalAlignment: Text.AlignVCenter
            text: choice.modelData
            size: 10
            weight: choice.index === picker.currentIndex ? Font.Bold : Font.Normal
            color: choice.index === picker.currentIndex ? OrvexTheme.cyan : OrvexTheme.text
        }
    }

    popup: T.Popup {
        // Where the window has no room for it there, the toolkit turns it to the other side.
        y: picker.height + 4
        width: picker.width
        implicitHeight: list.contentHeight + 2 * padding
        padding: 5

        background: Rectangle {
            radius: 10
            color: OrvexTheme.panelStrong
            border.width: 1
            border.color: OrvexTheme.borderBlue
        }

        contentItem: ListView {
            id: list

            clip: true
            model: picker.delegateModel
            currentIndex: picker.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
        }
    }
}
