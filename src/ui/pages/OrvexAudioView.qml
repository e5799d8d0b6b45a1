pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Library

// The system's audio effects.
LibraryPage {
    id: page

    required property AudioUnitRegistry registry

    // The linter does not know the numbers of the registry.
    readonly property var counts: page.registry

    signal copied

    emptyIcon: "waveform"
    emptyMessage: "Registry yalnızca sistem tarafından kayıtlı kAudioUnitType_Effect bileşenlerini listeler."
    emptyTitle: "Audio Unit effect bulunamadı"
    eyebrow: "ORVEX AUDIO"
    placeholder: "Audio Unit ara…"
    refreshTitle: "Audio Units yenile"
    scanning: page.registry.refreshing
    subtitle: "macOS tarafından kayıtlı gerçek AU effect envanteri"
    summary: page.registry.summary
    title: "Audio Unit Registry"
    unit: "effect · " + page.counts.validatedCount + " AUVAL · " + page.counts.sandboxSafeCount + " SANDBOX"
    onRefresh: page.registry.refresh()

    items: AudioUnitModel {
        id: effects

        registry: page.registry
    }

    cards: LibraryCard {
        id: card

        required property int index
        required property string name
        required property string codes
        required property string manufacturer
        required property string version
        required property string typeName
        required property bool sandboxSafe
        required property bool passesAUVal

        current: index === page.currentIndex
        detail: manufacturer + " · " + typeName + " · " + version
        icon: "waveform"
        title: name

        badges: [
            LibraryBadge {
                holds: card.passesAUVal
                text: "AUVAL"
            },
            LibraryBadge {
                holds: card.sandboxSafe
                text: "SANDBOX"
            }
        ]

        onClicked: {
            details.title = name;
            details.manufacturer = manufacturer;
            details.version = version;
            details.typeName = typeName;
            details.codes = effects.codeTexts(codes);
            details.passesAUVal = passesAUVal;
            details.sandboxSafe = sandboxSafe;
            details.open();
        }
        onTouched: page.select(index)
    }

    AudioUnitDetails {
        id: details

        objectName: "details"
        // The panel may be smaller than the window.
        parent: page

        // What had the focus before does not get it back.
        onClosed: page.focusCard()
        onCopied: page.copied()
    }
}
