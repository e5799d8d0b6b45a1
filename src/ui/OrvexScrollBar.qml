import QtQuick
import QtQuick.Templates as T
import Orvex

/// A slim bar that shows itself while it is of use.
T.ScrollBar {
    id: bar

    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    minimumSize: 0.06
    padding: 2
    visible: size < 1

    contentItem: Rectangle {
        color: OrvexTheme.text
        implicitHeight: 6
        implicitWidth: 6
        opacity: bar.pressed ? 0.5 : bar.hovered ? 0.36 : 0.16
        radius: 3
    }
}
