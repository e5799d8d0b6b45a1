import QtQuick
import Orvex

PanelCase {
    name: "Library"

    readonly property var files: objects?.files ?? null

    // The toolkit keeps pictures for later, also beyond the end.
    function cleanupTestCase() {
        wait(0);
        Window.window.releaseResources();
        wait(100);
    }

    // Without those that are about to be deleted.
    function cards() {
        return allItems(named(panel, "items"), item => item.takeFocus !== undefined && item.visible);
    }
    function titles() {
        waitForRendering(panel);
        return cards().sort((a, b) => a.y - b.y || a.x - b.x).map(card => card.title);
    }
    // The names of the notices that are shown; none beside a list.
    function notices() {
        return ["access", "grant", "error", "scanning", "empty"].filter(name => named(page(), name).visible);
    }
    /// Returns what the page said when the scan began.
    function dropAndScan(engine) {
        const registry = objects[engine];
        let said = null;
        const begun = () => said = said ?? notices();
        registry.scanningChanged.connect(begun);
        drop(files.root);
        tryVerify(() => registry.rootURL.toString().length > 0 && !registry.scanning);
        registry.scanningChanged.disconnect(begun);
        return said;
    }
    function search(text) {
        named(page(), "search").text = text;
    }

    function test_without_a_folder() {
        open(1040, 780, "motion");
        drop(files.file("a.txt"));
        tryVerify(() => objects.state.hasToast && objects.state.toast.message === "a file is no folder.");
        drop(files.root, files.root);
        compare(objects.state.toast.message, "Bir kerede tek klasör bırak.");
        compare(notices(), ["access", "grant"]);
        compare(dropAndScan("motion"), ["scanning"]);
        compare(notices(), ["empty"]);
    }

    function test_templates() {
        open(1040, 780, "motion");
        for (const file of ["Titles/Alt Bant/İsim/İsim.moti", "Titles/Alt Bant/Ad/Ad.moti", "Effects/Işık/Parla/Parla.moef"])
            files.file(file);
        dropAndScan("motion");
        objects.watchModel(named(panel, "items").model);
        compare(titles(), ["Parla", "Ad", "İsim"]);
        compare(notices(), []);
        const first = cards()[0];
        for (const [text, expected] of [["  ", ["Parla", "Ad", "İsim"]], ["Şık", ["Parla"]], ["alt", ["Ad", "İsim"]], [" sim", ["İsim"]]]) {
            search(text);
            compare(titles(), expected, text);
        }
        compare(cards()[0], first, "a card stays and shows another template");
        const kind = named(page(), "kind");
        kind.currentIndex = 3;
        search("parla");
        compare(notices(), ["empty"]);
        compare(named(page(), "counted").text, "3 template içinde 0 sonuç");
        kind.currentIndex = 1;
        compare(titles(), ["Parla"]);
        compare(cards()[0].detail, "Işık · Effects");

        // A search is typed wherever the keyboard is; from there the arrows lead into the cards.
        kind.currentIndex = 0;
        search("");
        mouseClick(cards()[0]);
        compare(objects.revealed.length, 1);
        verify(objects.revealed[0].toString().endsWith("/Parla.moef"));
        compare(objects.state.toast.message, "gösterilemedi");
        keyClick("a");
        compare(named(page(), "search").text, "a");
        keyClick(Qt.Key_Escape);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Return);
        verify(objects.revealed[1].toString().endsWith("/Ad.moti"));
    }

    function test_a_failed_scan_says_so() {
        open(1040, 780, "motion");
        files.file("a/b/d.moti");
        dropAndScan("motion");
        objects.watchModel(named(panel, "items").model);
        files.removeAll();
        mouseClick(named(page(), "refresh"));
        tryCompare(objects.motion, "scanning", false);
        compare(notices(), ["error"]);
        verify(named(page(), "error").message.includes("bulunamadı"));
        files.file("a/b/c.moti");
        named(page(), "error").clicked();
        tryCompare(objects.motion, "scanning", false);
        compare(titles(), ["c"]);
    }

    // What is no picture leaves the icon alone and holds nothing up.
    function test_pictures() {
        open(1040, 780, "motion");
        for (const name of ["good", "vast", "fifo", "text"])
            files.file(name + "/" + name + ".moti");
        files.picture("good/small.png", 90, 60);
        files.picture("vast/small.png", 3000, 2000);
        files.fifo("fifo/small.png");
        files.file("text/small.png");
        dropAndScan("motion");
        tryVerify(() => cards().length === 4 && cards().every(card => named(card, "picture").status !== Image.Loading));
        compare(cards().filter(card => named(card, "picture").visible).map(card => card.title), ["good"]);
    }

    function test_effects() {
        open(1040, 780, "audio");
        compare(notices(), ["empty"]);
        objects.installEffect();
        mouseClick(named(page(), "refresh"));
        tryCompare(objects.audio, "refreshing", false);
        compare(titles(), ["Yankı"]);
        compare(cards()[0].Accessible.description, "Kurgu Ses · Delay Plugin · 2.4, AUVAL: var, SANDBOX: yok");
        cards()[0].takeFocus();
        keyClick(Qt.Key_Space);
        const copy = () => named(panel.Window.window.contentItem, "copy");
        tryVerify(() => copy() !== null && copy().activeFocus);
        OrvexClipboard.text = "";
        keyClick(Qt.Key_Return);
        for (const text of ["Yankı", "1265988199 · Kurg", "7 · 0x00000007", "Geçti", "Güvenli değil"])
            verify(OrvexClipboard.text.includes(text), OrvexClipboard.text);
        keyClick(Qt.Key_Escape);
        tryVerify(() => cards()[0].visualFocus, 5000, "the keyboard goes on where it was");
    }

    function test_bundles() {
        open(1040, 780, "fxplug");
        files.file("Parla.fxplug/Contents/MacOS/program");
        dropAndScan("fxplug");
        compare(titles(), ["Parla"]);
        search("PARLA.FX");
        mouseClick(cards()[0]);
        verify(objects.revealed[0].toString().endsWith("/Parla.fxplug"));
    }
}
