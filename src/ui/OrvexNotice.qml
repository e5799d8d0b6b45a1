import QtQuick
import QtQuick.Layouts
import Orvex

/// Says on the page itself what went wrong or needs attention, with what to do about it in `hint`
/// and, when `actionTitle` is given, on a button.
Rectangle {
    id: notice

    required property string title
    property string message
    property string hint
    property string actionTitle
    property string icon: "exclamationmark.triangle.fill"
    property color accent: OrvexTheme.danger

    signal clicked

    Accessible.description: message + " " + hint
    Accessible.name: title
    Accessible.role: Accessible.AlertMessage
    border.color: OrvexTheme.fade(accent, 0.3)
    color: OrvexTheme.fade(accent, 0.08)
    implicitHeight: row.implicitHeight + 24
    implicitWidth: 240
    radius: OrvexTheme.tileRadius

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        OrvexSymbol {
            Layout.alignment: Qt.AlignTop
            color: notice.accent
            name: notice.icon
            size: 16
        }

        ColumnLayout {
            spacing: 4

            OrvexText {
                Accessible.ignored: true
                Layout.fillWidth: true
                size: 11
                text: notice.title
                weight: Font.Bold
                wrapMode: Text.Wrap
            }

            OrvexText {
                Accessible.ignored: true
                Layout.fillWidth: true
                maximumLineCount: 6
                size: 10
                text: notice.message
                visible: text.length > 0
                wrapMode: Text.Wrap
            }

            OrvexText {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: OrvexTheme.fade(OrvexTheme.text, 0.6)
                size: 9
                text: notice.hint
                visible: text.length > 0
                wrapMode: Text.Wrap
            }

            OrvexTextButton {
                Layout.bottomMargin: -bottomPadding
                Layout.fillWidth: true
                Layout.maximumWidth: Math.ceil(implicitWidth)
                size: 10
                title: notice.actionTitle
                visible: title.length > 0

                onClicked: notice.clicked()
            }
        }
    }
}
