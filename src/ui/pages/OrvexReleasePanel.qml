import QtQuick
import QtQuick.Layouts
import Orvex

// Whether the panel is up to date, and where a newer release is to be had.
OrvexPanel {
    id: panel

    required property OrvexState state

    readonly property bool newer: panel.state.release.updateAvailable
    readonly property string lastError: panel.state.release.lastError

    signal openPage(url: url)

    glow: panel.newer
    padding: 18

    contentItem: ColumnLayout {
        spacing: 10

        RowLayout {
            spacing: 8

            OrvexText {
                color: OrvexTheme.cyan
                size: 9
                text: "SÜRÜM DURUMU"
                tracking: 1.3
                weight: Font.Black
            }

            OrvexBadge {
                ink: OrvexTheme.warning
                text: "ZORUNLU GÜNCELLEME"
                visible: panel.newer && panel.state.release.mandatory
            }

            Item {
                Layout.fillWidth: true
            }
        }

        OrvexText {
            Layout.fillWidth: true
            size: 19
            text: "Vantrelo Orvex " + (panel.newer ? panel.state.release.latestVersion + " hazır" : panel.state.panelVersion + " güncel")
            weight: Font.Black
            wrapMode: Text.Wrap
        }

        OrvexText {
            Layout.fillWidth: true
            Layout.topMargin: -4
            color: OrvexTheme.muted
            maximumLineCount: 2
            size: 10
            text: "Yayım tarihi: " + panel.state.release.publishedAt
            visible: panel.newer && panel.state.release.publishedAt.length > 0
            wrapMode: Text.Wrap
        }

        Flow {
            Layout.fillWidth: true
            spacing: 8
            visible: panel.newer && (panel.state.release.hasDownload || panel.state.release.hasNotes)

            OrvexButton {
                icon: "icloud.and.arrow.down"
                title: "Tarayıcıda indir"
                visible: panel.state.release.hasDownload

                onClicked: panel.openPage(panel.state.release.downloadURL)
            }

            OrvexButton {
                icon: "info.circle.fill"
                title: "Sürüm notları"
                visible: panel.state.release.hasNotes

                onClicked: panel.openPage(panel.state.release.notesURL)
            }
        }

        OrvexNotice {
            Layout.fillWidth: true
            hint: "Son bilinen sürüm gösteriliyor. Bağlantını denetleyip aşağıdaki düğmeyle yeniden dene."
            message: panel.lastError
            title: "Sürüm denetlenemedi"
            visible: panel.lastError.length > 0
        }

        OrvexPrimaryButton {
            Layout.fillWidth: true
            disabled: panel.state.release.checking
            icon: "arrow.clockwise"
            title: panel.state.release.checking ? "Kontrol ediliyor" : "Güncellemeyi kontrol et"

            onClicked: panel.state.checkForUpdates(false)
        }
    }
}
