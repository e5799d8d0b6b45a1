import QtQuick
import Orvex

/// Says whether the host is connected.
Rectangle {
    id: badge

    required property bool connected

    Accessible.name: word.text
    Accessible.role: Accessible.StaticText
    border.color: Qt.rgba(1, 1, 1, 0.09)
    color: Qt.rgba(1, 1, 1, 0.045)
    implicitHeight: row.implicitHeight + 14
    implicitWidth: row.implicitWidth + 20
    radius: height / 2

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: badge.connected ? OrvexTheme.success : OrvexTheme.danger
            height: 7
            radius: 3.5
            width: 7
        }

        OrvexText {
            id: word

            Accessible.ignored: true
            size: 9
            text: badge.connected ? "LIVE" : "OFFLINE"
            tracking: 1.2
            weight: Font.Black
        }
    }
}
