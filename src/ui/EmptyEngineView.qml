import QtQuick
import QtQuick.Layouts
import Orvex

/// Stands where a list would, and says why there is none; with an `actionTitle`, also a button for
/// what can be done about it.
OrvexPanel {
    id: empty

    required property string icon
    required property string title
    required property string message
    property string actionTitle
    property string actionIcon

    signal clicked

    Accessible.description: message
    Accessible.name: title
    Accessible.role: Accessible.StaticText
    padding: 28

    contentItem: ColumnLayout {
        spacing: 10

        OrvexSymbol {
            Layout.alignment: Qt.AlignHCenter
            name: empty.icon
            size: 25
        }

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            size: 12
            text: empty.title
            weight: Font.Black
            wrapMode: Text.Wrap
        }

        OrvexText {
            Accessible.ignored: true
            Layout.alignment: Qt.AlignHCenter
            Layout.fillWidth: true
            Layout.maximumWidth: 520
            color: OrvexTheme.muted
            horizontalAlignment: Text.AlignHCenter
            lineHeight: 1.25
            size: 9
            text: empty.message
            wrapMode: Text.Wrap
        }

        OrvexButton {
            Layout.alignment: Qt.AlignHCenter
            Layout.maximumWidth: parent.width
            Layout.topMargin: 4
            icon: empty.actionIcon
            title: empty.actionTitle
            visible: title.length > 0

            onClicked: empty.clicked()
        }
    }
}
