pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Library

// The FxPlug bundles found.
LibraryPage {
    id: page

    required property FxPlugRegistry registry

    signal reveal(file: url)

    accessMessage: "Örn. /Library/Plug-Ins/FxPlug veya ~/Library/Plug-Ins/FxPlug klasörünü seçebilirsin."
    accessTitle: "FxPlug klasörüne erişim gerekli"
    chooseTitle: "FxPlug klasörünü seç"
    emptyIcon: "shippingbox.fill"
    emptyMessage: "Seçilen root altında okunabilir plug-in bundle bulunamadı."
    emptyTitle: "Bundle bulunamadı"
    eyebrow: "ORVEX FXPLUG"
    folder: page.registry
    placeholder: "FxPlug ara…"
    refreshTitle: "FxPlug registry yenile"
    subtitle: "Seçilen FxPlug root içindeki gerçek bundle envanteri"
    summary: page.folder.summary
    title: "FxPlug Registry"
    unit: "bundle"
    onRefresh: page.folder.scan()

    items: FxPlugModel {
        registry: page.registry
    }

    cards: LibraryCard {
        required property int index
        required property string name
        required property string bundleIdentifier
        required property string version
        required property url fileURL

        current: index === page.currentIndex
        detail: version + " · " + bundleIdentifier
        icon: "shippingbox.fill"
        label: "FINDER"
        title: name

        onClicked: page.reveal(fileURL)
        onTouched: page.select(index)
    }
}
