import QtQuick
import Orvex

/// Shows where the keyboard is, around the item's parent.
Rectangle {
    required property bool shown
    property real targetRadius: OrvexTheme.tileRadius

    anchors.fill: parent
    anchors.margins: -3
    border.color: OrvexTheme.cyan
    border.width: 2
    color: "transparent"
    radius: targetRadius + 3
    visible: shown
}
