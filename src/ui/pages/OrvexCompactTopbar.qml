import QtQuick
import Orvex
import Orvex.Pages

// The header of the compact layout, with the pulsing brand mark.
Rectangle {
    id: topbar

    required property OrvexState state
    // Set once the header has appeared; the mark then swings between its two looks.
    property bool headerPulse: false
    // When the swing began; milliseconds since 1970.
    property real began: 0
    // 0 to 1 between the looks without and with `headerPulse`.
    property real pulse: 0

    color: OrvexTheme.background
    Component.onCompleted: headerPulse = true
    onHeaderPulseChanged: began = Date.now()

    // Eases in and out, there and back, in twice 1.25 seconds; no more often than the backdrop moves,
    // so that it adds no frames of its own.
    Timer {
        interval: 33
        repeat: true
        running: topbar.headerPulse && topbar.OrvexMotion.animated
        onTriggered: topbar.pulse = (1 - Math.cos(Math.PI * (Date.now() - topbar.began) / 1250)) / 2
    }

    Row {
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        Item {
            width: 34
            height: 34
            scale: 0.94 + 0.14 * topbar.pulse

            // One glow for each end of the swing, faded into each other.
            OrvexShadow {
                anchors.fill: parent
                radius: mark.radius
                blurRadius: 8
                color: OrvexTheme.fade(OrvexTheme.cyan, 0.75)
                opacity: topbar.pulse
            }

            OrvexShadow {
                anchors.fill: parent
                radius: mark.radius
                blurRadius: 2
                color: OrvexTheme.fade(OrvexTheme.cyan, 0.18)
                opacity: 1 - topbar.pulse
            }

            OrvexBrandMark {
                id: mark

                anchors.fill: parent
                radius: 9
                symbolSize: 13
                border.width: 1
                border.color: OrvexTheme.fade(OrvexTheme.cyan, 0.16 + 0.56 * topbar.pulse)
            }
        }

        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 3

            OrvexText {
                text: "VANTRELO ORVEX"
                size: 9
                weight: Font.Black
                tracking: 1.0
            }

            OrvexText {
                text: "WORKFLOW EXTENSION"
                size: 7
                weight: Font.Black
                tracking: 0.9
                color: OrvexTheme.cyan
            }
        }
    }

    OrvexStatusBadge {
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        connected: topbar.state.host.connected
    }
}
