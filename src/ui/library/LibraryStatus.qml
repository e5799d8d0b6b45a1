import QtQuick
import QtQuick.Layouts
import Orvex

/// How much of an inventory is listed, where it comes from, how far its scan is, and what can be done
/// to bring it up to date.
ColumnLayout {
    id: status

    required property engineSummary summary
    /// Of what the search found.
    required property int found
    required property bool searching
    /// What the items are called.
    required property string unit
    required property bool scanning
    required property real scanDone
    required property real scanTotal
    required property real skippedFolders
    required property string refreshTitle
    required property string chooseTitle
    property bool choosable: true
    property bool refreshable: true

    /// There is room for titles on the buttons. Not from the own width: that changes while things are
    /// being laid out, and a layout does not hear of what grows meanwhile.
    required property bool wide

    readonly property string counted: {
        if (status.scanning)
            return status.scanTotal > 0 ? "Taranıyor: " + status.scanDone + " / " + status.scanTotal + " dosya" : status.scanDone > 0 ? "Taranıyor: " + status.scanDone + " girdi" : "Taranıyor…";
        const total = OrvexFormat.count(status.summary) + " " + status.unit;
        return status.searching ? total + " içinde " + status.found + " sonuç" : total;
    }

    signal refresh
    signal choose

    spacing: 8

    RowLayout {
        spacing: 8

        ColumnLayout {
            spacing: 3

            OrvexText {
                Layout.fillWidth: true
                objectName: "counted"
                size: 10
                text: status.counted
                weight: Font.Bold
            }

            OrvexText {
                Layout.fillWidth: true
                color: OrvexTheme.muted
                elide: Text.ElideMiddle
                size: 9
                text: status.summary.detail
            }
        }

        OrvexButton {
            icon: "arrow.clockwise"
            name: status.refreshTitle
            objectName: "refresh"
            title: status.wide ? status.refreshTitle : ""
            visible: status.refreshable

            onClicked: status.refresh()
        }

        OrvexButton {
            icon: "folder.badge.plus"
            name: status.chooseTitle
            objectName: "choose"
            title: status.wide ? status.chooseTitle : ""
            visible: status.choosable

            onClicked: status.choose()
        }
    }

    OrvexText {
        Layout.fillWidth: true
        color: OrvexTheme.warning
        objectName: "skipped"
        size: 9
        text: status.skippedFolders + " klasör okunamadı; içindekiler listede yok. Klasörlerin izinlerini denetle, sonra yenile."
        visible: status.skippedFolders > 0 && !status.scanning
        wrapMode: Text.Wrap
    }

    // Keeps its place, so that a scan moves nothing.
    Item {
        Layout.fillWidth: true
        Layout.preferredHeight: 3

        OrvexProgressBar {
            anchors.fill: parent
            done: status.scanDone
            name: "Taranıyor"
            objectName: "progress"
            total: status.scanTotal
            visible: status.scanning
        }
    }
}
