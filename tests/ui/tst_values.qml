import QtQuick
import QtTest
import Orvex

KitCase {
    name: "Values"

    function test_toastKinds() {
        for (const kind of [OrvexToast.Success, OrvexToast.Error, OrvexToast.Info]) {
            setup.state.showToast("Bitti", kind, 60);
            compare(setup.state.toast.kind, kind);
            compare(setup.state.toast.message, "Bitti");
        }
        verify(OrvexToast.Success !== OrvexToast.Info);
    }

    function test_pages() {
        for (const page of OrvexPages.all) {
            setup.state.activePage = page;
            compare(setup.state.activePage.id, page.id);
        }
        setup.state.activePage = OrvexPages.byId("color");
        compare(setup.state.activePage.title, "Color");
        compare(OrvexPages.indexOf(setup.state.activePage), 5);
    }

    function test_host() {
        compare(setup.state.host.sequenceName, "NO SEQUENCE");
        compare(OrvexFormat.timecode(setup.state.host.playheadSeconds), "00:00:00.000");
        compare(OrvexFormat.rate(setup.state.host.fps), "—");
    }
}
