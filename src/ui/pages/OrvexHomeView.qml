pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// What the panel controls at a glance.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug

    signal refreshHost

    // An inventory of a folder, with the choice of it.
    component FolderEngineCard: OrvexEngineStatusCard {
        id: card

        // A FolderRegistry; the linter cannot follow the registries to what they have in common.
        required property var registry
        required property string chooseTitle
        readonly property bool folderChosen: String(card.registry.rootURL).length > 0

        summary: card.registry.summary
        actionTitle: card.folderChosen ? "Yenile" : card.chooseTitle
        error: card.registry.lastError
        busy: card.registry.scanning
        done: card.registry.scanDone
        total: card.registry.scanTotal

        onClicked: {
            if (card.folderChosen)
                card.registry.scan();
            else
                card.registry.chooseFolder();
        }
    }

    OrvexAppearance {
        onAppeared: {
            page.state.checkForUpdates(true);
            page.state.refreshPacks(false);
        }
    }

    OrvexSectionTitle {
        eyebrow: "FINAL CUT CONTROL"
        title: "Orvex Host Center"
        subtitle: "Host + gerçek engine registry + Release Center"
    }

    OrvexHostPanel {
        state: page.state
    }

    OrvexSectionTitle {
        eyebrow: "REAL ENGINE HUB"
        title: "Engine Status"
        subtitle: "Motion, Audio Unit, LUT ve FxPlug envanteri"
    }

    OrvexAdaptiveGrid {
        // All in one row, or two in each, or one.
        maximumColumns: page.width >= 1000 ? 4 : 2
        minimumWidth: 220
        spacing: OrvexTheme.gridSpacing

        FolderEngineCard {
            registry: page.motion
            chooseTitle: "Motion Templates klasörünü seç"
        }

        OrvexEngineStatusCard {
            summary: page.audio.summary
            actionTitle: "Audio Units yenile"
            busy: page.audio.refreshing

            onClicked: page.audio.refresh()
        }

        FolderEngineCard {
            registry: page.luts
            chooseTitle: "LUT klasörünü seç"
        }

        FolderEngineCard {
            registry: page.fxplug
            chooseTitle: "FxPlug klasörünü seç"
        }
    }

    OrvexAdaptiveGrid {
        maximumColumns: 2
        minimumWidth: 230
        spacing: OrvexTheme.gridSpacing

        OrvexToolCard {
            icon: "arrow.triangle.2.circlepath"
            title: "Final Cut bağlantısını yenile"
            subtitle: "Host ve timeline bilgisini yeniden oku"

            onClicked: page.refreshHost()
        }

        OrvexToolCard {
            icon: "arrow.clockwise"
            title: page.state.release.checking ? "Kontrol ediliyor" : "Güncelleme kontrolü"
            subtitle: page.state.release.updateAvailable ? "Yeni sürüm hazır • " + page.state.release.latestVersion : "Kurulu sürüm • " + page.state.panelVersion

            onClicked: page.state.checkForUpdates(false)
        }
    }
}
