import QtQuick
import Orvex

// The header of the wide layout: the product, and the host with its connection.
Rectangle {
    id: topbar

    required property OrvexState state
    readonly property bool versionKnown: topbar.state.host.hostVersion !== "" && topbar.state.host.hostVersion !== "—"

    color: OrvexTheme.background

    Column {
        anchors.left: parent.left
        anchors.leftMargin: 17
        anchors.verticalCenter: parent.verticalCenter
        spacing: 3

        OrvexText {
            text: "WORKFLOW EXTENSION"
            size: 8
            weight: Font.Black
            tracking: 1.3
            color: OrvexTheme.cyan
        }

        OrvexText {
            id: product

            text: "Vantrelo Orvex"
            size: 12
            weight: Font.Bold
        }
    }

    OrvexText {
        objectName: "hostLine"
        anchors.right: badge.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, topbar.width / 2)
        text: topbar.versionKnown ? topbar.state.host.hostName + " " + topbar.state.host.hostVersion : topbar.state.host.hostName
        size: 9
        color: OrvexTheme.muted
    }

    OrvexStatusBadge {
        id: badge

        anchors.right: parent.right
        anchors.rightMargin: 17
        anchors.verticalCenter: parent.verticalCenter
        connected: topbar.state.host.connected
    }
}
