import QtQuick
import QtQuick.Templates as T
import Orvex

/// Shows where the keyboard is. `target` fills the item's parent; what is no control sets `visible`.
Rectangle {
    property T.Control target: null
    property real targetRadius: OrvexTheme.tileRadius

    anchors.fill: parent
    anchors.margins: -3
    border.color: OrvexTheme.cyan
    border.width: 2
    color: "transparent"
    radius: targetRadius + 3
    visible: target?.visualFocus ?? false
}
