import QtQuick
import Orvex

/// The dark ground of what can be written into.
Rectangle {
    required property bool focused
    required property bool hovered

    border.color: focused ? OrvexTheme.fade(OrvexTheme.cyan, 0.6) : OrvexTheme.fade(OrvexTheme.text, hovered ? 0.18 : 0.1)
    color: Qt.rgba(0, 0, 0, 0.18)
    radius: 10
}
