pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Color

// LUTs of the installed packs and of the user's own folder, as they make a picture look, each to be
// applied with one press.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property LUTRegistry registry
    required property ColorServices color

    property string search
    readonly property LUTApplyBridge applyBridge: page.color.makeBridge(page)
    // Why the last LUT could not even be handed over, or nothing.
    property string preparationError

    readonly property LUTPreviews previews: page.color.previews
    readonly property bool applying: page.applyBridge.activePath.length > 0
    readonly property bool scanning: page.registry.scanning
    readonly property bool hasFolder: page.scanning || page.registry.health !== EngineHealth.NeedsAccess

    // What the host shows.
    readonly property string frame: page.state.host.sequenceName + " " + page.state.host.playheadSeconds

    signal reveal(file: url)

    function apply(file: url, root: url) {
        page.preparationError = "";
        page.applyBridge.apply(file, root);
    }

    Component.onCompleted: page.previews.refreshSource()
    onFrameChanged: settled.restart()
    onScanningChanged: if (!page.scanning)
        page.previews.forget()

    // A picture of every frame of a clip that plays would be of use to nobody.
    Timer {
        id: settled

        interval: 600

        onTriggered: if (page.OrvexMotion.running)
            page.previews.refreshSource()
    }

    Connections {
        target: page.applyBridge

        function onLastResultChanged() {
            const bridge = page.applyBridge;
            if (bridge.lastResult.length > 0)
                page.state.showToast(bridge.lastResult, bridge.lastSucceeded ? OrvexToast.Success : OrvexToast.Error, 6.0);
        }

        function onFailed(description: string) {
            page.preparationError = description;
        }
    }

    Connections {
        target: page.state

        function onInstalledPacksChanged() {
            page.previews.forget();
        }
    }

    CloudLUTs {
        id: cloud

        search: page.search
        state: page.state
    }

    LocalLUTs {
        id: local

        registry: page.registry
        search: page.search
    }

    OrvexSectionTitle {
        eyebrow: "ORVEX COLOR"
        subtitle: "Vantrelo Cloud + yerel .cube kataloğu"
        title: "Color & LUT Library"
    }

    OrvexTextField {
        id: searchField

        leftPadding: 34
        name: "LUT ara"
        objectName: "search"
        placeholderText: "LUT ara…"

        Keys.onEscapePressed: event => {
            event.accepted = searchField.length > 0;
            searchField.clear();
        }
        onTextChanged: page.search = searchField.text

        OrvexSymbol {
            anchors.verticalCenter: parent.verticalCenter
            color: OrvexTheme.muted
            name: "magnifyingglass"
            size: 16
            x: 11
        }
    }

    OrvexNotice {
        actionTitle: "Kapat"
        message: page.preparationError
        objectName: "preparationError"
        title: "LUT uygulanamadı"
        visible: page.preparationError.length > 0

        onClicked: page.preparationError = ""
    }

    ColorSummary {
        applying: page.applying
        cloudCount: cloud.total
        hostName: page.state.host.hostName
        localCount: local.total
        previews: page.previews
    }

    OrvexSectionTitle {
        eyebrow: "VANTRELO CLOUD"
        subtitle: "Release Center Universal Pack içerikleri"
        title: "Cloud LUT Library"
    }

    EmptyEngineView {
        actionIcon: "arrow.triangle.2.circlepath"
        actionTitle: "Update Center’a git"
        icon: "icloud.and.arrow.down"
        message: "Update Center → Vantrelo Cloud Packs bölümünden LUT paketini yükle."
        objectName: "noCloud"
        title: "Cloud LUT henüz yüklenmedi"
        visible: cloud.total === 0

        onClicked: page.state.activePage = OrvexPages.byId("updates")
    }

    EmptyEngineView {
        icon: "magnifyingglass"
        message: "“" + page.search.trim() + "” ile eşleşen cloud LUT yok."
        title: "Cloud LUT bulunamadı"
        visible: cloud.total > 0 && cloud.count === 0
    }

    LUTGrid {
        activePath: page.applyBridge.activePath
        model: cloud
        objectName: "cloudCards"
        page: page
        previews: page.previews
        revealDescription: "Cloud LUT’u Finder’da göster"

        onApply: (file, root) => page.apply(file, root)
        onReveal: file => page.reveal(file)
    }

    RowLayout {
        spacing: 8

        OrvexSectionTitle {
            Layout.fillWidth: true
            eyebrow: "MY LIBRARY"
            subtitle: "Senin seçtiğin yerel .cube klasörü"
            title: "Local LUT Library"
        }

        OrvexButton {
            icon: "folder.badge.plus"
            name: "Başka bir LUT klasörü seç"
            objectName: "chooseOther"
            visible: page.hasFolder

            onClicked: page.registry.chooseFolder()
        }

        OrvexButton {
            enabled: !page.scanning
            icon: "arrow.clockwise"
            name: "LUT kütüphanesini yenile"
            objectName: "refresh"
            visible: page.hasFolder

            onClicked: page.registry.scan()
        }
    }

    OrvexNotice {
        actionTitle: "Yeniden tara"
        hint: "Klasörün yerinde ve okunabilir olduğunu denetle veya başka bir klasör seç."
        message: page.registry.lastError
        objectName: "scanError"
        title: "LUT klasörü taranamadı"
        visible: page.hasFolder && !page.scanning && page.registry.lastError.length > 0

        onClicked: page.registry.scan()
    }

    ColumnLayout {
        objectName: "scan"
        spacing: 6
        visible: page.scanning

        OrvexText {
            Accessible.role: Accessible.StaticText
            Layout.fillWidth: true
            color: OrvexTheme.muted
            size: 9
            text: page.registry.scanTotal > 0 ? "LUT dosyaları okunuyor: " + page.registry.scanDone + " / " + page.registry.scanTotal : "LUT klasörü taranıyor…"
        }

        OrvexProgressBar {
            Layout.fillWidth: true
            done: page.registry.scanDone
            total: page.registry.scanTotal
        }
    }

    EmptyEngineView {
        actionIcon: "folder.badge.plus"
        actionTitle: "LUT klasörünü seç"
        icon: "folder"
        message: "Bu alan isteğe bağlıdır. Cloud LUT'lar için klasör seçmen gerekmez."
        objectName: "noFolder"
        title: "Yerel LUT klasörü seçilmedi"
        visible: !page.hasFolder

        onClicked: page.registry.chooseFolder()
    }

    EmptyEngineView {
        actionIcon: "folder.badge.plus"
        actionTitle: "Başka bir klasör seç"
        icon: "camera.filters"
        message: "Seçilen dizinde .cube dosyası bulunamadı."
        objectName: "noLocal"
        title: "Yerel LUT bulunamadı"
        visible: page.hasFolder && !page.scanning && page.registry.lastError.length === 0 && local.total === 0

        onClicked: page.registry.chooseFolder()
    }

    EmptyEngineView {
        icon: "magnifyingglass"
        message: "“" + page.search.trim() + "” ile eşleşen yerel LUT yok."
        title: "Yerel LUT bulunamadı"
        visible: local.total > 0 && local.count === 0
    }

    LUTGrid {
        activePath: page.applyBridge.activePath
        model: local
        objectName: "localCards"
        page: page
        previews: page.previews
        revealDescription: "LUT’u Finder’da göster"

        onApply: (file, root) => page.apply(file, root)
        onReveal: file => page.reveal(file)
    }
}
