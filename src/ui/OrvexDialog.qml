import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Orvex

/// Something to deal with before the rest, in the middle of the item that is its parent: a title and
/// its children in a column below.
T.Popup {
    id: dialog

    property string title
    property real maximumWidth: 420
    default property alias content: column.data

    anchors.centerIn: parent
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    focus: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 8
    modal: true
    padding: 18
    width: Math.min(maximumWidth, (parent ? parent.width : maximumWidth) - 32)

    T.Overlay.modal: Rectangle {
        color: OrvexTheme.fade(OrvexTheme.background, 0.6)
    }

    background: Rectangle {
        border.color: OrvexTheme.borderBlue
        color: OrvexTheme.panelStrong
        radius: OrvexTheme.panelRadius
    }

    contentItem: ColumnLayout {
        id: column

        Accessible.name: dialog.title
        Accessible.role: Accessible.Dialog
        spacing: 14

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            maximumLineCount: 3
            size: 16
            text: dialog.title
            weight: Font.Black
            wrapMode: Text.Wrap
        }
    }
}
