import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Library

/// What the pages of the inventories share: a heading, a search row, then the items or the reason why
/// there are none.
OrvexScrollPage {
    id: page

    required property LibraryModel items
    required property engineSummary summary
    /// The FolderRegistry; null where the inventory is not of a folder. The linter cannot follow the
    /// registries to what they have in common.
    property var folder: null
    property bool scanning: page.folder !== null && page.folder.scanning
    property alias cards: grid.delegate
    /// Stands beside the search field.
    property alias filter: filterSlot.data
    /// Something besides the search keeps items out.
    property bool filtered: false

    required property string eyebrow
    required property string title
    required property string subtitle
    required property string placeholder
    required property string unit
    required property string refreshTitle
    property string chooseTitle: "Klasör seç"
    property string accessTitle
    property string accessMessage
    required property string emptyIcon
    required property string emptyTitle
    required property string emptyMessage

    readonly property int currentIndex: grid.currentIndex
    readonly property bool folderChosen: page.folder !== null && String(page.folder.rootURL).length > 0
    readonly property string situation: {
        if (page.items.count > 0)
            return "list";
        if (page.scanning)
            return "scanning";
        const health = page.summary.health;
        if (health === EngineHealth.Error)
            return "error";
        return health === EngineHealth.NeedsAccess ? "access" : "empty";
    }

    signal refresh
    signal refused(reason: string)

    function select(index: int): void {
        grid.currentIndex = index;
    }

    /// Leads the keyboard to the card that was last used.
    function focusCard(): void {
        grid.move(0);
    }

    spacing: 16
    // What is typed anywhere on the page is searched for.
    Keys.onPressed: event => {
        if (field.take(event))
            event.accepted = true;
    }

    Shortcut {
        enabled: page.scanning === false
        sequence: "F5"

        onActivated: page.refresh()
    }

    LibraryDropTarget {
        anchors.fill: parent
        enabled: page.folder !== null
        parent: page
        z: 2

        onFolderDropped: folder => page.folder.useFolder(folder)
        onRefused: reason => page.refused(reason)
    }

    Connections {
        target: page.items

        function onListChanged() {
            if (page.OrvexMotion.animated)
                change.restart();
        }
    }

    NumberAnimation {
        id: change

        duration: 200
        easing.type: Easing.InOutQuad
        from: 0.35
        property: "opacity"
        target: grid
        to: 1

        onStopped: grid.opacity = 1
    }

    OrvexSectionTitle {
        eyebrow: page.eyebrow
        subtitle: page.subtitle
        title: page.title
    }

    RowLayout {
        id: searchRow

        spacing: 10

        LibrarySearch {
            id: field

            Layout.fillWidth: true
            Layout.minimumWidth: 80
            placeholderText: page.placeholder

            onSearched: grid.enter()
            onTextChanged: page.items.search = field.text
        }

        RowLayout {
            id: filterSlot

            Layout.fillWidth: false
            visible: children.length > 0
        }
    }

    LibraryStatus {
        choosable: page.folder !== null && page.situation !== "access"
        chooseTitle: page.chooseTitle
        found: page.items.count
        refreshTitle: page.refreshTitle
        refreshable: page.folder === null || page.folderChosen
        scanDone: page.folder !== null ? page.folder.scanDone : 0
        scanTotal: page.folder !== null ? page.folder.scanTotal : 0
        scanning: page.scanning
        searching: page.filtered || field.text.trim().length > 0
        skippedFolders: page.folder !== null ? page.folder.skippedFolders : 0
        summary: page.summary
        unit: page.unit
        wide: page.width >= 600

        onChoose: page.folder.chooseFolder()
        onRefresh: page.refresh()
    }

    OrvexNotice {
        Accessible.role: Accessible.AlertMessage
        actionTitle: "Yeniden tara"
        hint: "Başka bir klasörü yukarıdaki düğmeyle seçebilir ya da buraya sürükleyebilirsin."
        message: page.folder !== null ? page.folder.lastError : ""
        objectName: "error"
        title: "Klasör taranamadı"
        visible: page.situation === "error"

        onClicked: page.refresh()
    }

    EmptyEngineView {
        icon: page.emptyIcon
        message: "Bulunanlar tarama bitince listelenir."
        objectName: "scanning"
        title: "Taranıyor…"
        visible: page.situation === "scanning"
    }

    EmptyEngineView {
        icon: "folder.badge.plus"
        message: page.accessMessage
        objectName: "access"
        title: page.accessTitle
        visible: page.situation === "access"
    }

    OrvexPrimaryButton {
        icon: "folder.badge.plus"
        objectName: "grant"
        title: page.chooseTitle
        visible: page.situation === "access"

        onClicked: page.folder.chooseFolder()
    }

    EmptyEngineView {
        icon: page.emptyIcon
        message: page.emptyMessage
        objectName: "empty"
        title: page.emptyTitle
        visible: page.situation === "empty"
    }

    OrvexCardGrid {
        id: grid

        cardHeight: 68
        minimumWidth: 224
        model: page.items
        objectName: "items"
        page: page
    }
}
