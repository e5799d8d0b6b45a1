import QtQuick
import QtTest
import Orvex
import Orvex.Pages

PanelCase {
    name: "Toast"

    readonly property string sentence: "Seçilen klasör okunamadı; erişim izni geri alınmış olabilir, klasörü yeniden seç. "

    function toastView() {
        return named(panel, "toast");
    }

    function test_kind_data() {
        return [
            {
                tag: "success",
                kind: OrvexToast.Success,
                symbol: "checkmark.circle.fill",
                accent: OrvexTheme.blue
            },
            {
                tag: "error",
                kind: OrvexToast.Error,
                symbol: "exclamationmark.triangle.fill",
                accent: OrvexTheme.danger
            },
            {
                tag: "info",
                kind: OrvexToast.Info,
                symbol: "info.circle.fill",
                accent: OrvexTheme.warning
            }
        ];
    }
    function test_kind(data) {
        open(1040, 780);
        verify(!toastView().visible);
        objects.toast("Bitti", data.kind, 60);
        verify(toastView().visible);
        compare(toastView().symbolName, data.symbol);
        compare(toastView().accent, data.accent);
        verify(showing(toastView(), "Bitti") !== null);
    }

    function test_place_data() {
        return [
            {
                tag: "wide",
                width: 1040,
                top: 76,
                limit: 520
            },
            {
                tag: "compact",
                width: 979,
                top: 112,
                limit: 360
            },
            {
                tag: "narrow",
                width: 320,
                top: 112,
                limit: 320 - 28
            }
        ];
    }
    function test_place(data) {
        open(data.width, 780);
        objects.toast(sentence + sentence, OrvexToast.Error, 60);
        compare(toastView().y, data.top);
        compare(toastView().x + toastView().width, data.width - 14);
        verify(toastView().width <= data.limit);
        const message = findItem(toastView(), item => item.text === objects.state.toast.message);
        verify(!message.truncated, "a message of two sentences is shown whole");
        objects.toast("Kısa", OrvexToast.Info, 60);
        verify(toastView().width < data.limit / 2, "a short message makes a small toast");
    }

    function test_replaced_in_place_and_hidden() {
        open(1040, 780);
        objects.toast("Bir", OrvexToast.Success, 60);
        objects.toast("İki", OrvexToast.Error, 0.05);
        compare(toastView().y, 76);
        compare(toastView().opacity, 1);
        compare(allItems(panel, item => item.symbolName !== undefined).length, 1);
        verify(showing(toastView(), "Bir") === null);
        verify(showing(toastView(), "İki") !== null);
        tryCompare(toastView(), "visible", false);
    }

    function test_moves_in_and_out() {
        open(1040, 780);
        OrvexMotion.reduced = false;
        objects.toast("Bir", OrvexToast.Success, 60);
        verify(toastView().opacity < 1);
        verify(toastView().scale < 1);
        verify(toastView().y < 76);
        tryCompare(toastView(), "opacity", 1);
        compare(toastView().scale, 1);
        compare(toastView().y, 76);
        objects.toast("Bir", OrvexToast.Success, 0);
        tryVerify(() => !objects.state.hasToast);
        verify(toastView().visible, "it fades with its text");
        verify(showing(toastView(), "Bir") !== null);
        tryCompare(toastView(), "visible", false);
    }

    function test_lets_clicks_through() {
        open(360, 640);
        objects.state.activePage = OrvexPages.byId("timeline");
        objects.connectHost();
        objects.toast(sentence, OrvexToast.Info, 60);
        const button = named(panel, "navigation home");
        mouseClick(button);
        compare(objects.state.activePage.id, "home");
    }
}
