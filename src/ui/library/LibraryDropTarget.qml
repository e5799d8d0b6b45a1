import QtQuick
import Orvex

/// Takes a folder that is dropped on the item it fills, and shows while one is over it.
DropArea {
    id: target

    signal folderDropped(folder: url)
    signal refused(reason: string)

    function take(urls: list<url>): void {
        if (urls.length === 1)
            target.folderDropped(urls[0]);
        else
            target.refused("Bir kerede tek klasör bırak.");
    }

    onDropped: drop => {
        if (!drop.hasUrls)
            return;
        drop.accept(Qt.CopyAction);
        target.take(drop.urls);
    }
    onEntered: drag => drag.accepted = drag.hasUrls

    Rectangle {
        anchors.fill: parent
        anchors.margins: 8
        border.color: OrvexTheme.cyan
        border.width: 2
        color: OrvexTheme.fade(OrvexTheme.background, 0.82)
        objectName: "dropSign"
        radius: OrvexTheme.panelRadius
        visible: target.containsDrag

        Column {
            anchors.centerIn: parent
            spacing: 10

            OrvexSymbol {
                anchors.horizontalCenter: parent.horizontalCenter
                name: "folder.badge.plus"
                size: 32
            }

            OrvexText {
                size: 13
                text: "Klasörü buraya bırak"
                weight: Font.Black
            }
        }
    }
}
