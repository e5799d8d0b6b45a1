import QtQuick
import Orvex
import Orvex.Color
import Orvex.Library

// LUTs of the installed packs and of the user's own folder, as they make a picture look, each to be
// applied with one press.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property LUTRegistry registry
    required property ColorServices color
    // As the FolderRegistry that it is; the linter cannot follow the registries to it.
    readonly property var folder: page.registry

    property string search
    readonly property LUTApplyBridge applyBridge: page.color.bridgeFor(page, page.state)
    // Why the last LUT could not even be handed over, or nothing.
    property string preparationError

    readonly property LUTPreviews previews: page.color.previews
    readonly property bool applying: page.applyBridge.activePath.length > 0
    readonly property bool scanning: page.folder.scanning
    readonly property bool folderChosen: String(page.folder.rootURL).length > 0

    // What the host shows.
    readonly property string frame: page.state.host.sequenceName + " " + page.state.host.playheadSeconds

    signal reveal(file: url)

    function refuse(reason: string) {
        page.state.showToast(reason, OrvexToast.Error, 5.0);
    }

    function apply(file: url, root: url) {
        page.preparationError = "";
        page.applyBridge.apply(file, root);
    }

    // What is typed anywhere on the page is searched for.
    Keys.onPressed: event => {
        if (searchField.take(event))
            event.accepted = true;
    }
    onFrameChanged: settled.restart()
    onScanningChanged: {
        // What it said may not hold any more.
        if (page.scanning)
            page.preparationError = "";
        else
            page.previews.forget();
    }

    OrvexAppearance {
        onAppeared: {
            page.state.refreshInstalledPacks();
            page.previews.refreshSource();
        }
    }

    Shortcut {
        enabled: page.folderChosen && !page.scanning
        sequences: ["F5"]

        onActivated: page.folder.scan()
    }

    LibraryDropTarget {
        anchors.fill: parent
        parent: page
        z: 2

        onFolderDropped: folder => page.folder.useFolder(folder)
        onRefused: reason => page.refuse(reason)
    }

    // Stays in sight, wherever on the page the LUT was.
    Rectangle {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.margins: page.padding
        anchors.right: parent.right
        color: OrvexTheme.panelStrong
        height: notice.height
        parent: page
        radius: notice.radius
        visible: page.preparationError.length > 0
        z: 1

        // A press beside its button is not one on the card that it covers.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
        }

        OrvexNotice {
            id: notice

            actionTitle: "Kapat"
            message: page.preparationError
            objectName: "preparationError"
            title: "LUT uygulanamadı"
            width: parent.width

            onClicked: page.preparationError = ""
        }
    }

    // A picture of every frame of a clip that plays would be of use to nobody.
    Timer {
        id: settled

        interval: 600

        onTriggered: if (page.OrvexMotion.running)
            page.previews.refreshSource()
    }

    Connections {
        target: page.applyBridge

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

    LibrarySearch {
        id: searchField

        placeholderText: "LUT ara…"

        onSearched: (cloud.count > 0 ? cloudCards : localCards).enter()
        onTextChanged: page.search = searchField.text
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
        id: cloudCards

        activePath: page.applyBridge.activePath
        model: cloud
        objectName: "cloudCards"
        page: page
        previews: page.previews
        revealDescription: "Cloud LUT’u Finder’da göster"

        onApply: (file, root) => page.apply(file, root)
        onReveal: file => page.reveal(file)
    }

    OrvexSectionTitle {
        eyebrow: "MY LIBRARY"
        subtitle: "Senin seçtiğin yerel .cube klasörü"
        title: "Local LUT Library"
    }

    LibraryStatus {
        chooseTitle: "LUT klasörünü seç"
        found: local.count
        objectName: "status"
        refreshTitle: "LUT kütüphanesini yenile"
        scanDone: page.folder.scanDone
        scanTotal: page.folder.scanTotal
        scanning: page.scanning
        searching: page.search.trim().length > 0
        skippedFolders: page.folder.skippedFolders
        summary: page.folder.summary
        unit: "LUT"
        visible: page.folderChosen || page.scanning
        wide: page.width >= 620

        onChoose: page.folder.chooseFolder()
        onRefresh: page.folder.scan()
    }

    OrvexNotice {
        actionTitle: "Yeniden tara"
        hint: "Başka bir klasörü yukarıdaki düğmeyle seçebilir ya da buraya sürükleyebilirsin."
        message: page.folder.lastError
        objectName: "scanError"
        title: "LUT klasörü taranamadı"
        visible: page.folderChosen && !page.scanning && page.folder.lastError.length > 0

        onClicked: page.folder.scan()
    }

    EmptyEngineView {
        actionIcon: "folder.badge.plus"
        actionTitle: "LUT klasörünü seç"
        icon: "folder"
        message: "Bu alan isteğe bağlıdır. Cloud LUT'lar için klasör seçmen gerekmez."
        objectName: "noFolder"
        title: "Yerel LUT klasörü seçilmedi"
        visible: !page.folderChosen && !page.scanning

        onClicked: page.folder.chooseFolder()
    }

    EmptyEngineView {
        actionIcon: "folder.badge.plus"
        actionTitle: "Başka bir klasör seç"
        icon: "camera.filters"
        message: "Seçilen dizinde .cube dosyası bulunamadı."
        objectName: "noLocal"
        title: "Yerel LUT bulunamadı"
        visible: page.folderChosen && !page.scanning && page.folder.lastError.length === 0 && local.total === 0

        onClicked: page.folder.chooseFolder()
    }

    EmptyEngineView {
        icon: "magnifyingglass"
        message: "“" + page.search.trim() + "” ile eşleşen yerel LUT yok."
        title: "Yerel LUT bulunamadı"
        visible: local.total > 0 && local.count === 0
    }

    LUTGrid {
        id: localCards

        activePath: page.applyBridge.activePath
        model: local
        objectName: "localCards"
        page: page
        previews: page.previews
        revealDescription: "LUT’u Finder’da göster"

        onApply: (file, root) => page.apply(file, root)
        onReveal: file => page.reveal(file)
    }

    // What lies last can be scrolled out from behind the notice.
    Item {
        implicitHeight: notice.height
        visible: page.preparationError.length > 0
    }
}
