import QtQuick
import Orvex

PanelCase {
    name: "Home"

    function test_the_host_in_words() {
        open(1040, 780);
        verify(showing(page(), "HOST BEKLENİYOR") && showing(page(), "Timeline açıldığında canlı range bilgisi görünür."));
        objects.report({ connected: true, hostVersion: "11", sequenceAvailable: true, sequenceName: "Kurgu 1", sequenceStartSeconds: 1, sequenceDurationSeconds: 60, playheadSeconds: 2.5, fps: 23.976 });
        verify(showing(page(), "Final Cut Pro 11") && showing(page(), "Range 00:00:01.000 – 00:01:01.000 • Playhead 00:00:02.500"));
        compare(["Sequence", "FPS", "Orvex"].map(label => metric(label).value), ["Kurgu 1", "23.98", objects.state.panelVersion]);
    }

    function test_each_visit_checks_quietly_and_refreshes_aloud() {
        objects.publishRelease("99.0", {});
        objects.publishPack("a", "Gece", "1.0", 10);
        make(1040, 780);
        compare(objects.asked("/downloads"), 0, "nothing before the page was seen");
        waitForRendering(panel);
        for (let visit = 1; visit <= 2; ++visit) {
            tryVerify(() => objects.state.hasToast);
            compare(objects.state.toast.message, "1 Universal Pack bulundu.");
            tryVerify(() => objects.state.release.updateAvailable && !objects.state.release.checking);
            compare([objects.asked("/downloads/finalcut"), objects.asked("/downloads/orvex")], [visit, visit]);
            objects.state.showToast("", OrvexToast.Info, 0);
            tryVerify(() => !objects.state.hasToast);
            for (const id of ["timeline", "home"]) {
                objects.state.activePage = OrvexPages.byId(id);
                waitForRendering(panel);
            }
        }
    }

    function test_tools_and_engines() {
        objects.connectHost();
        open(1040, 780);
        mouseClick(titled(page(), "Final Cut bağlantısını yenile"));
        compare(objects.refreshes, ["connect", "home"]);
        const cards = allItems(page(), item => item.healthWord !== undefined);
        compare(cards.map(card => card.summary.title), ["Motion Templates", "Audio Units", "LUT Library", "FxPlug Registry"]);
        compare(cards.map(card => card.actionTitle), ["Motion Templates klasörünü seç", "Audio Units yenile", "LUT klasörünü seç", "FxPlug klasörünü seç"]);
        compare(cards.map(card => card.healthWord), ["ACCESS", "EMPTY", "ACCESS", "ACCESS"]);
        const before = objects.audio.lastRefresh;
        mouseClick(titled(cards[1], "Audio Units yenile"));
        tryVerify(() => objects.audio.lastRefresh > before);
    }
}
