pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Library
import Orvex.Pages

// The Motion templates found.
LibraryPage {
    id: page

    required property MotionTemplateRegistry registry

    readonly property var kinds: [MotionTemplateKind.Any, MotionTemplateKind.Effect, MotionTemplateKind.Generator, MotionTemplateKind.Title, MotionTemplateKind.Transition]
    readonly property var kindNames: ["Tümü", "Effects", "Generators", "Titles", "Transitions"]
    readonly property var kindIcons: ["wand.and.stars", "square.3.layers.3d", "textformat", "rectangle.split.2x1"]

    signal reveal(file: url)

    accessMessage: "Sandbox nedeniyle klasörü bir kez seç. Vantrelo Orvex güvenlik kapsamlı bookmark ile sonraki açılışlarda erişimi geri yükler."
    accessTitle: "Motion Templates erişimi gerekli"
    chooseTitle: "Motion Templates klasörünü seç"
    emptyIcon: "sparkles.rectangle.stack"
    emptyMessage: "Seçilen dizinde desteklenen Motion template proje dosyası bulunamadı."
    emptyTitle: "Template bulunamadı"
    eyebrow: "ORVEX MOTION"
    filtered: templates.kind !== MotionTemplateKind.Any
    folder: page.registry
    placeholder: "Template ara…"
    refreshTitle: "Motion Templates yenile"
    subtitle: "Gerçek .moef / .motn / .moti / .motr taraması"
    summary: page.folder.summary
    title: "Motion Template Registry"
    unit: "template"
    onRefresh: page.folder.scan()

    items: MotionTemplateModel {
        id: templates

        kind: page.kinds[picker.currentIndex] ?? MotionTemplateKind.Any
        registry: page.registry
    }

    filter: OrvexPicker {
        id: picker

        model: page.kindNames
        name: "Tür"
        objectName: "kind"
    }

    cards: LibraryCard {
        required property int index
        required property string name
        required property int kind
        required property string category
        required property url fileURL
        required property url previewURL

        current: index === page.currentIndex
        detail: category + " · " + page.kindNames[kind + 1]
        icon: page.kindIcons[kind]
        iconExtent: 28
        label: "FINDER"
        picture: TemplatePreviews.source(previewURL, templates.generation)
        title: name

        onClicked: page.reveal(fileURL)
        onTouched: page.select(index)
    }
}
