pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Pages

// The panel's version and the content packs.
OrvexScrollPage {
    id: page

    required property OrvexState state

    // An address of https for the browser.
    signal openPage(url: url)

    OrvexAppearance {
        onAppeared: {
            // What is installed is shown without a network, too.
            page.state.refreshInstalledPacks();
            page.state.refreshPacks(true);
        }
    }

    OrvexSectionTitle {
        eyebrow: "VANTRELO RELEASE CLOUD"
        title: "Update Center"
        subtitle: "App + Universal Pack Cloud"
    }

    OrvexReleasePanel {
        state: page.state
        onOpenPage: url => page.openPage(url)
    }

    OrvexAdaptiveGrid {
        maximumColumns: 3
        minimumWidth: 96
        spacing: OrvexTheme.gridSpacing

        OrvexMetric {
            label: "Installed"
            value: page.state.panelVersion
        }

        OrvexMetric {
            label: "Latest"
            value: page.state.release.latestVersion
        }

        OrvexMetric {
            label: "Cloud Packs"
            value: packs.catalogCount.toString()
        }
    }

    ColumnLayout {
        spacing: 10

        RowLayout {
            spacing: 12

            OrvexSectionTitle {
                Layout.fillWidth: true
                eyebrow: "UNIVERSAL CONTENT"
                title: "Vantrelo Cloud Packs"
                subtitle: "Release Center'dan Final Cut'a gönderilen içerikler"
            }

            OrvexButton {
                enabled: !page.state.packsRefreshing
                icon: "arrow.triangle.2.circlepath"
                name: "Cloud Pack kataloğunu yenile"
                title: page.width >= 620 ? name : ""

                onClicked: page.state.refreshPacks(false)
            }
        }

        // Keeps its place, so that nothing below it moves.
        OrvexProgressBar {
            Accessible.ignored: !page.state.packsRefreshing
            Layout.fillWidth: true
            implicitHeight: 2
            name: "Katalog okunuyor"
            opacity: page.state.packsRefreshing ? 1 : 0
        }
    }

    OrvexNotice {
        hint: "Kurulu pack'ler kullanılabilir durumda. Bağlantını ve disk alanını denetleyip yeniden dene."
        message: page.state.packLastError
        title: "Son pack işlemi tamamlanamadı"
        actionTitle: "Kataloğu yeniden oku"
        visible: page.state.packLastError.length > 0

        onClicked: page.state.refreshPacks(false)
    }

    EmptyEngineView {
        icon: "shippingbox.fill"
        title: "Cloud pack bulunamadı"
        message: "Universal Pack manifesti yenileniyor. Final Cut hedefli içerikler burada görünür."
        visible: packs.catalogCount === 0
    }

    OrvexCardGrid {
        id: cards

        objectName: "packs"
        cardHeight: 148
        minimumWidth: 290
        page: page
        model: PackListModel {
            id: packs

            state: page.state
        }
        delegate: OrvexPackCard {
            current: index === cards.currentIndex
            state: page.state
            catalogKnown: packs.catalogCount > 0

            onTouched: cards.currentIndex = index
        }
    }
}
