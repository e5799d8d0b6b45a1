import QtQuick
import Orvex

PanelCase {
    name: "Color"

    // The page with two LUTs of a pack and two local ones, of which one cannot be used.
    function openFilled() {
        objects.installLUTs("Gece", { "A.CUBE": "plain.cube", "lutpack3.cube": "domain.cube", "readme.txt": "plain.cube", ".cube": "plain.cube" });
        objects.files.cube("broken.cube", "decimal-commas.cube");
        objects.files.cube("Film.cube", "crlf.cube");
        objects.luts.useFolder(objects.files.root);
        open(1040, 2000, "color");
        tryVerify(() => cards().filter(card => named(card, "picture").ready || !card.usable).length === 4);
    }

    function cards() {
        return allItems(panel, item => item.revealDescription !== undefined && item.index >= 0 && item.visible);
    }
    function card(name) {
        return cards().find(item => item.name === name);
    }
    function click(name, button = "apply") {
        mouseClick(named(card(name), button));
    }

    function test_says_why_there_is_nothing_and_what_to_do() {
        open(1040, 1400, "color");
        verify(showing(panel, "Cloud LUT henüz yüklenmedi") && showing(panel, "Yerel LUT klasörü seçilmedi"));
        drop(objects.files.file("note.txt"));
        tryVerify(() => objects.state.hasToast && objects.state.toast.kind === OrvexToast.Error);
        drop(objects.files.root);
        tryVerify(() => showing(panel, "Yerel LUT bulunamadı") && showing(panel, "Seçilen dizinde .cube dosyası bulunamadı."));
        objects.files.removeAll();
        objects.luts.scan();
        tryVerify(() => named(panel, "scanError").visible);
        compare(named(panel, "scanError").message, objects.luts.lastError);
        mouseClick(titled(panel, "Update Center’a git"));
        compare(objects.state.activePage.id, "updates");
    }

    function test_shows_both_catalogues_and_searches_them_together() {
        openFilled();
        compare(cards().map(item => item.name + "|" + item.caption), ["A|Gece • v1.0", "LUT Pack 03|Gece • v1.0", "broken|3D 2", "Film|Negatif • 3D 2"]);
        compare(["cloudCount", "localCount"].map(name => named(panel, name).count), [2, 2]);
        compare(card("broken").error, "Satır 2: “1,0”: ondalık ayırıcı virgül değil nokta olmalı.");
        verify(!named(card("broken"), "apply").visible);
        const field = named(panel, "search");
        const found = { "PACK 03": 1, " gece\n": 2, "film": 1, "negat": 1, "  ": 4, "xyz": 0 };
        for (const text in found) {
            field.text = text;
            tryVerify(() => cards().length === found[text], 5000, text);
        }
        tryVerify(() => showing(panel, "Cloud LUT bulunamadı") && showing(panel, "“xyz” ile eşleşen yerel LUT yok."));
        field.forceActiveFocus();
        keyClick(Qt.Key_Escape);
        compare(field.text, "");
        tryVerify(() => cards().length === 4);
        click("A", "reveal");
        compare(objects.revealed.map(url => url.toString().split("/").slice(-3).join("/")), ["Gece/1.0/A.CUBE"]);
        // Not its contents: it may be there again when it is applied.
        objects.files.removeAll();
        objects.colorServices.previews.forget();
        tryVerify(() => card("Film").error === "Dosya okunamadı." && named(card("Film"), "apply").visible);
    }
    function test_applies_one_at_a_time_and_tells_the_result() {
        openFilled();
        for (const [name, ok, message] of [["A", true, "Uygulandı"], ["Film", false, "Klip yok"], ["A", true, ""]]) {
            objects.state.showToast("", OrvexToast.Info, 0);
            click(name);
            compare(named(panel, "engineStatus").text, "FİNAL CUT’A UYGULANIYOR");
            compare(cards().filter(item => item.usable).map(item => named(item, "apply").title).sort(), ["UYGULA", "UYGULA", "UYGULANIYOR…"]);
            compare(named(card(name), "apply").title, "UYGULANIYOR…");
            verify(!named(card("LUT Pack 03"), "apply").enabled);
            let answered = false;
            tryVerify(() => answered = answered || objects.answerLUTRequest(ok, message));
            tryCompare(page().applyBridge, "activePath", "");
            compare(objects.state.toast.message, message);
            compare(objects.state.toast.kind, ok ? OrvexToast.Success : OrvexToast.Error);
            compare(named(card(name), "apply").title, "UYGULA");
        }
    }

    function test_says_on_the_page_why_nothing_could_be_handed_over() {
        openFilled();
        objects.launchError = "Yardımcı başlatılamadı.";
        click("A");
        const notice = named(panel, "preparationError");
        tryVerify(() => notice.visible);
        compare(notice.title, "LUT uygulanamadı");
        compare(notice.message, "Yardımcı başlatılamadı.");
        compare(page().applyBridge.activePath, "");
        click("A");
        verify(!notice.visible);
        // Left in the middle of it.
        objects.state.activePage = OrvexPages.byId("home");
        tryVerify(() => objects.state.hasToast && objects.state.toast.message === "LUT uygulanamadı • Yardımcı başlatılamadı.");
        objects.launchError = "";
        objects.state.activePage = OrvexPages.byId("color");
        tryVerify(() => card("A") !== undefined);
        click("A");
        objects.state.activePage = OrvexPages.byId("home");
        // The request that could not be handed over may lie there, too.
        tryVerify(() => {
            objects.answerLUTRequest(false, "Klip yok");
            return objects.state.toast.message === "Klip yok";
        }, 20000);
    }

    function test_compares_with_the_original() {
        openFilled();
        const picture = named(card("A"), "picture");
        mousePress(picture, 40, 20);
        compare(picture.split, 1);
        mouseMove(picture, picture.width / 2, 20);
        fuzzyCompare(picture.split, 0.5, 0.01);
        mouseRelease(picture, picture.width / 2, 20);
        compare(picture.split, 0);
    }

    function test_keyboard() {
        openFilled();
        page().forceActiveFocus();
        keyClick("g");
        keyClick("e");
        compare(named(panel, "search").text, "ge");
        keyClick(Qt.Key_Down);
        verify(named(card("A"), "apply").visualFocus);
        keyPress(Qt.Key_Shift);
        compare(named(card("A"), "picture").split, 1);
        keyRelease(Qt.Key_Shift);
        keyClick(Qt.Key_Right);
        verify(named(card("LUT Pack 03"), "apply").visualFocus);
        keyClick(Qt.Key_Return);
        compare(page().applyBridge.activePath, card("LUT Pack 03").path);
    }
}
