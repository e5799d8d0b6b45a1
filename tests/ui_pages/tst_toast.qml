import QtQuick
import QtTest
import Orvex
import Orvex.Pages

PanelCase {
    name: "Toast"

    readonly property string sentence: "Seçilen klasör okunamadı; erişim izni geri alınmış olabilir, klasörü yeniden seç. "
    property Item toast: null

    function openPanel(width) {
        open(width, 780);
        toast = named(panel, "toast");
        verify(!toast.visible);
    }

    function test_kind_data() {
        return [
            { tag: "success", kind: OrvexToast.Success, symbol: "checkmark.circle.fill", accent: OrvexTheme.blue },
            { tag: "error", kind: OrvexToast.Error, symbol: "exclamationmark.triangle.fill", accent: OrvexTheme.danger },
            { tag: "info", kind: OrvexToast.Info, symbol: "info.circle.fill", accent: OrvexTheme.warning }
        ];
    }
    function test_kind(data) {
        openPanel(1040);
        objects.toast("Bitti", data.kind, 60);
        verify(toast.visible);
        compare(toast.symbolName, data.symbol);
        compare(toast.accent, data.accent);
        verify(showing(toast, "Bitti") !== null);
    }

    function test_place_data() {
        return [
            { tag: "wide", width: 1040, top: 76, limit: 520 },
            { tag: "compact", width: 979, top: 112, limit: 360 },
            { tag: "narrow", width: 320, top: 112, limit: 320 - 28 }
        ];
    }
    function test_place(data) {
        openPanel(data.width);
        objects.toast(sentence + sentence, OrvexToast.Error, 60);
        compare(toast.y, data.top);
        compare(toast.x + toast.width, data.width - 14);
        verify(toast.width <= data.limit);
        const message = findItem(toast, item => item.text === objects.state.toast.message);
        verify(!message.truncated, "a message of two sentences is shown whole");
        objects.toast("Kısa", OrvexToast.Info, 60);
        verify(toast.width < data.limit / 2, "a short message makes a small toast");
        mouseClick(named(panel, "navigation timeline"));
        compare(objects.state.activePage.id, "timeline", "clicks go through");
    }

    function test_moves_in_and_out() {
        openPanel(1040);
        OrvexMotion.reduced = false;
        objects.toast("Bir", OrvexToast.Success, 60);
        verify(toast.opacity < 1 && toast.scale < 1 && toast.y < 76);
        tryCompare(toast, "opacity", 1);
        compare(toast.scale, 1);
        // Replaced in its place.
        objects.toast("İki", OrvexToast.Error, 0.05);
        compare(toast.y, 76);
        compare(toast.opacity, 1);
        verify(showing(toast, "Bir") === null);
        tryVerify(() => !objects.state.hasToast);
        verify(toast.visible, "it fades with its text");
        verify(showing(toast, "İki") !== null);
        tryCompare(toast, "visible", false);
    }
}
