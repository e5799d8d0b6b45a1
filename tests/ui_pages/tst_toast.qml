import QtQuick
import Orvex

PanelCase {
    name: "Toast"

    function test_kind_and_place_data() {
        return [
            { tag: "wide", width: 1040, top: 76, limit: 520, kind: OrvexToast.Success, accent: OrvexTheme.blue },
            { tag: "compact", width: 979, top: 112, limit: 360, kind: OrvexToast.Error, accent: OrvexTheme.danger },
            { tag: "narrow", width: 320, top: 112, limit: 320 - 28, kind: OrvexToast.Info, accent: OrvexTheme.warning }
        ];
    }
    function test_kind_and_place(data) {
        open(data.width, 780);
        const toast = named(panel, "toast");
        verify(!toast.visible);
        objects.state.showToast("Seçilen klasör okunamadı; erişim izni geri alınmış olabilir, klasörü yeniden seç. ".repeat(8), data.kind, 60);
        compare(toast.accent, data.accent);
        compare(toast.y, data.top);
        compare(toast.x + toast.width, data.width - 14);
        verify(toast.width <= data.limit);
        verify(!showing(toast, objects.state.toast.message).truncated, "a long message is shown whole");
        objects.state.showToast("Kısa", data.kind, 60);
        verify(toast.width < data.limit / 2, "a short message makes a small toast");
        mouseClick(named(panel, "navigation timeline"));
        compare(objects.state.activePage.id, "timeline", "clicks go through");
    }
}
