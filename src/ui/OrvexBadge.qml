import QtQuick
import Orvex

/// A word or two that mark something.
Rectangle {
    id: badge

    required property string text
    property color ink: OrvexTheme.cyan
    property color fill: OrvexTheme.fade(ink, 0.11)

    Accessible.name: text
    Accessible.role: Accessible.StaticText
    color: fill
    implicitHeight: label.implicitHeight + 6
    implicitWidth: label.implicitWidth + 12
    radius: OrvexTheme.chipRadius

    OrvexText {
        id: label

        Accessible.ignored: true
        anchors.centerIn: parent
        color: badge.ink
        size: 7
        text: badge.text
        tracking: 0.7
        weight: Font.Black
    }
}
