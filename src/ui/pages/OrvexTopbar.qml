import QtQuick
import Orvex

// The header of the wide layout: the host, the product, and whether they are connected.
Rectangle {
    id: topbar

    required property OrvexState state
    readonly property bool versionKnown: topbar.state.host.hostVersion !== "" && topbar.state.host.hostVersion !== "—"

    color: OrvexTheme.background

    OrvexText {
        objectName: "hostLine"
        anchors.left: parent.left
        anchors.leftMargin: 17
        anchors.right: product.left
        anchors.rightMargin: 17
        anchors.verticalCenter: parent.verticalCenter
        text: topbar.versionKnown ? topbar.state.host.hostName + " " + topbar.state.host.hostVersion : topbar.state.host.hostName
        size: 9
        color: OrvexTheme.muted
    }

    Column {
        id: product

        anchors.centerIn: parent
        spacing: 3

        OrvexText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "WORKFLOW EXTENSION"
            size: 8
            weight: Font.Black
            tracking: 1.3
            color: OrvexTheme.cyan
        }

        OrvexText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Vantrelo Orvex"
            size: 12
            weight: Font.Bold
        }
    }

    OrvexStatusBadge {
        anchors.right: parent.right
        anchors.rightMargin: 17
        anchors.verticalCenter: parent.verticalCenter
        connected: topbar.state.host.connected
    }
}
