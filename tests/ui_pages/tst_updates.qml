import QtQuick

PanelCase {
    name: "Updates"

    property Item grid: null

    // Opens the page and waits until it lists so many packs.
    function openUpdates(count, width = 1040, height = 780) {
        open(width, height, "updates");
        grid = named(panel, "packs");
        objects.watchModel(grid.model);
        tryCompare(grid, "count", count, 20000);
        tryVerify(() => !objects.state.packsRefreshing);
        tryVerify(() => count === 0 || allItems(grid, item => item.pack !== undefined).length > 0);
    }

    function card(name) {
        return findItem(grid, item => item.pack !== undefined && item.name === name);
    }

    // The button, brought into view.
    function button(name, title) {
        const found = findItem(card(name), item => item.title === title && item.visible);
        if (found)
            page().bringIntoView(card(name));
        return found;
    }

    function shows(name, text) {
        return showing(card(name), text) !== null;
    }

    function test_installs_updates_and_removes_by_click() {
        objects.publishPack("a", "Gece", "1.0.0", 12400);
        openUpdates(1);
        compare(metric("Cloud Packs").value, "1");
        verify(shows("Gece", "v1.0.0 • 12.4 KB") && !shows("Gece", "INSTALLED") && button("Gece", "Kaldır") === null);
        verify(!objects.state.hasToast, "the first refresh is silent");

        mouseClick(button("Gece", "Yükle"));
        tryVerify(() => objects.state.hasToast);
        compare(objects.state.toast.message, "Gece yüklendi.");
        verify(shows("Gece", "Kurulu: v1.0.0") && shows("Gece", "INSTALLED") && shows("Gece", "Güncel"));
        compare(button("Gece", "Yükle"), null);

        objects.publishPack("a", "Gece", "1.1.0", 10);
        mouseClick(findItem(page(), item => item.name === "Cloud Pack kataloğunu yenile"));
        tryCompare(card("Gece"), "needsUpdate", true);
        compare(objects.state.toast.message, "1 Universal Pack bulundu.");
        let wasShut = false;
        card("Gece").busyChanged.connect(() => wasShut = wasShut || button("Gece", "Kaldır")?.enabled === false);
        mouseClick(button("Gece", "Güncelle"));
        tryVerify(() => shows("Gece", "Kurulu: v1.1.0"));

        verify(wasShut, "a press meant for what was there a moment ago");
        tryVerify(() => button("Gece", "Kaldır").enabled);
        mouseClick(button("Gece", "Kaldır"));
        tryCompare(card("Gece"), "installed", false);
        compare(objects.state.toast.message, "Gece kaldırıldı.");
    }

    function test_an_install_shows_its_bytes_and_can_be_cancelled() {
        objects.publishPack("a", "Gece", "1", 100000);
        objects.publishPack("b", "Sinema", "1", 10);
        objects.holdPack("a");
        openUpdates(2);
        mouseClick(button("Gece", "Yükle"));
        tryVerify(() => shows("Gece", "40.0 KB / 100.0 KB"));
        fuzzyCompare(named(card("Gece"), "progress").part, 0.4, 1e-9);
        verify(!button("Gece", "İşleniyor…").enabled);
        mouseClick(button("Sinema", "Yükle"));
        tryVerify(() => shows("Sinema", "INSTALLED"));
        mouseClick(button("Gece", "İptal"));
        tryCompare(card("Gece"), "busy", false);
        compare(objects.state.toast.message, "Gece kurulumu iptal edildi.");
        verify(button("Gece", "Yükle").enabled);
    }

    function test_keyboard_moves_over_cards_and_presses() {
        objects.publishPacks(30);
        openUpdates(30, 360, 640);
        const first = button("Pack 0", "Yükle");
        first.forceActiveFocus(Qt.TabFocusReason);
        for (const [key, index] of [[Qt.Key_End, 29], [Qt.Key_PageDown, 29], [Qt.Key_Home, 0], [Qt.Key_Down, 1], [Qt.Key_Up, 0], [Qt.Key_Down, 1]]) {
            keyClick(key);
            compare(grid.currentIndex, index);
        }
        verify(button("Pack 1", "Yükle").activeFocus);
        keyClick(Qt.Key_Return);
        tryVerify(() => button("Pack 1", "Kaldır") !== null);
        wait(0);
        keyClick(Qt.Key_Return);
        verify(shows("Pack 1", "INSTALLED") && !card("Pack 1").busy);
        tryVerify(() => button("Pack 1", "Kaldır").enabled);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Down);
        verify(button("Pack 1", "Kaldır").activeFocus);
    }

    function test_many_packs_make_few_cards() {
        objects.publishPacks(1000);
        openUpdates(1000);
        const cards = () => allItems(grid, item => item.pack !== undefined).length;
        verify(cards() < 60);
        keyClick(Qt.Key_End);
        page().scrollTo(page().contentHeight);
        waitForRendering(panel);
        verify(card("Pack 999").mapToItem(panel, 0, 0).y < panel.height);
        verify(cards() < 60);
    }

    function test_the_release_and_its_pages() {
        objects.publishPacks(0);
        openUpdates(0);
        verify(showing(page(), "Vantrelo Orvex " + objects.state.panelVersion + " güncel") !== null);
        verify(titled(page(), "Cloud pack bulunamadı").visible);
        objects.publishRelease("99.0", { publishedAt: "18 Kasım", mandatory: true, downloadURL: "https://orvex.example/d", notesURL: "http://orvex.example/n" });
        mouseClick(titled(page(), "Güncellemeyi kontrol et"));
        verify(titled(page(), "Kontrol ediliyor") !== null);
        tryVerify(() => showing(page(), "Vantrelo Orvex 99.0 hazır") !== null);
        verify(showing(page(), "Yayım tarihi: 18 Kasım") && showing(page(), "ZORUNLU GÜNCELLEME"));
        verify(!titled(page(), "Sürüm notları").visible, "not an address of https");
        waitForRendering(panel);
        mouseClick(titled(page(), "Tarayıcıda indir"));
        compare(objects.opened, ["https://orvex.example/d"]);
    }

    function test_without_a_network() {
        objects.publishPack("a", "Gece", "1", 10);
        objects.installElsewhere("a");
        objects.cutNetwork();
        openUpdates(1);
        verify(shows("Gece", "Kurulu: v1") && shows("Gece", "1 dosya • FINAL CUT"));
        verify(titled(page(), "Son pack işlemi tamamlanamadı").visible);
        mouseClick(titled(page(), "Güncellemeyi kontrol et"));
        tryVerify(() => titled(page(), "Sürüm denetlenemedi").visible);
        verify(showing(page(), objects.state.release.lastError) !== null);
        mouseClick(button("Gece", "Kaldır"));
        tryCompare(grid, "count", 0);
    }
}
