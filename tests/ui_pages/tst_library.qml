import QtQuick
import QtTest
import Orvex
import Orvex.Pages
import Orvex.Test

PanelCase {
    name: "Library"

    property LibraryFiles files: null

    Component {
        id: filesComponent

        LibraryFiles {}
    }

    // The toolkit keeps pictures for later, also beyond the end.
    function cleanupTestCase() {
        wait(0);
        Window.window.releaseResources();
        wait(100);
    }

    function openPage(id) {
        files = createTemporaryObject(filesComponent, this);
        open(1040, 780, id);
    }

    // Without those that are about to be deleted.
    function cards() {
        return allItems(named(panel, "items"), item => item.takeFocus !== undefined && item.visible && item.index >= 0);
    }
    function titles() {
        waitForRendering(panel);
        return cards().sort((a, b) => a.y - b.y || a.x - b.x).map(card => card.title);
    }
    // The names of the notices that are shown; none beside a list.
    function notices() {
        return ["access", "grant", "error", "scanning", "empty"].filter(name => named(page(), name).visible);
    }
    function drop(urls) {
        files.dropOn(page(), urls);
    }
    function search(text) {
        named(page(), "search").text = text;
    }

    function test_without_a_folder_data() {
        return [
            { tag: "motion", title: "Motion Templates erişimi gerekli" },
            { tag: "fxplug", title: "FxPlug klasörüne erişim gerekli" }
        ];
    }
    function test_without_a_folder(data) {
        openPage(data.tag);
        compare(notices(), ["access", "grant"]);
        compare(named(page(), "access").title, data.title);
        drop([files.file("a.txt")]);
        verify(objects.state.toast.message.endsWith("a.txt bir klasör değil. Bir klasör bırak."));
        drop([files.root, files.root]);
        compare(objects.state.toast.message, "Bir kerede tek klasör bırak.");
        compare(notices(), ["access", "grant"]);
        drop([files.root]);
        compare(notices(), ["scanning"]);
        tryVerify(() => !objects[data.tag].scanning);
        compare(notices(), ["empty"]);
        compare(objects[data.tag].rootURL, files.root);
    }

    function test_templates() {
        openPage("motion");
        for (const file of ["Titles/Alt Bant/İsim/İsim.moti", "Titles/Alt Bant/Ad/Ad.moti", "Effects/Işık/Parla/Parla.moef"])
            files.file(file);
        drop([files.root]);
        tryCompare(objects.motion, "scanning", false);
        compare(titles(), ["Parla", "Ad", "İsim"]);
        compare(notices(), []);
        for (const [text, expected] of [["  ", ["Parla", "Ad", "İsim"]], ["Şık", ["Parla"]], ["alt", ["Ad", "İsim"]], [" sim", ["İsim"]]]) {
            search(text);
            compare(titles(), expected, text);
        }
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
        openPage("motion");
        files.file("a/b/c.moti");
        files.file("a/closed/d.moti");
        drop([files.root]);
        tryCompare(objects.motion, "scanning", false);
        compare(titles().length, 2);
        files.removeAll();
        mouseClick(named(page(), "refresh"));
        tryCompare(objects.motion, "scanning", false);
        compare(notices(), ["error"]);
        verify(named(page(), "error").message.includes("bulunamadı"));
        files.file("a/b/c.moti");
        named(page(), "error").clicked();
        compare(notices(), ["scanning"]);
        tryCompare(objects.motion, "scanning", false);
        compare(titles(), ["c"]);
    }

    // What is no picture leaves the icon alone and holds nothing up.
    function test_pictures() {
        openPage("motion");
        const made = {
            good: path => files.picture(path, 90, 60),
            vast: path => files.picture(path, 3000, 2000),
            thin: path => files.picture(path, 1, 400000),
            fifo: path => files.fifo(path),
            text: path => files.file(path)
        };
        for (const name in made) {
            files.file(name + "/" + name + ".moti");
            made[name](name + "/small.png");
        }
        drop([files.root]);
        tryCompare(objects.motion, "scanning", false);
        tryVerify(() => cards().length === 5 && cards().every(card => named(card, "picture").status !== Image.Loading));
        compare(cards().filter(card => named(card, "picture").visible).map(card => card.title), ["good", "thin"]);
    }

    function test_effects() {
        openPage("audio");
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
        const content = copy().parent.parent;
        fuzzyCompare(content.mapToItem(page(), content.width / 2, 0).x, page().width / 2, 1);
        OrvexClipboard.text = "";
        keyClick(Qt.Key_Return);
        for (const text of ["Yankı", "1265988199 · Kurg", "1635083896 · aufx", "7 · 0x00000007", "Geçti", "Güvenli değil"])
            verify(OrvexClipboard.text.includes(text), OrvexClipboard.text);
        keyClick(Qt.Key_Escape);
        tryVerify(() => copy() === null || !copy().visible);
    }

    function test_bundles() {
        openPage("fxplug");
        files.file("Parla.fxplug/Contents/MacOS/program");
        drop([files.root]);
        tryCompare(objects.fxplug, "scanning", false);
        compare(titles(), ["Parla"]);
        search("PARLA.FX");
        mouseClick(cards()[0]);
        verify(objects.revealed[0].toString().endsWith("/Parla.fxplug"));
    }
}
