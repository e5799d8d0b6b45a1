import QtQuick
import Orvex

PanelCase {
    name: "Timeline"

    readonly property var cards: ["Sequence Start", "Sequence End", "-1 Frame", "+1 Frame", "-1 Second", "+1 Second"]

    function test_what_is_shown_and_enabled_data() {
        const sequence = { sequenceAvailable: true, sequenceName: "Kurgu 1", sequenceStartSeconds: 10, sequenceDurationSeconds: 3725.5, frameDurationSeconds: 0.04, fps: 25, playheadSeconds: 12.5 };
        const bare = { connected: true, sequenceAvailable: true, sequenceName: "ACTIVE TIMELINE", sequenceDurationSeconds: 10 };
        const odd = { connected: true, frameDurationSeconds: 0.04, sequenceStartSeconds: NaN, sequenceDurationSeconds: Infinity, playheadSeconds: -Infinity, fps: Infinity };
        return [
            { tag: "disconnected", fields: {}, metrics: ["NO SEQUENCE", "00:00:00.000", "00:00:00.000", "0.00s", "0.00s", "—"] },
            { tag: "not finite", fields: odd, metrics: ["NO SEQUENCE", "—", "—", "—", "—", "—"] },
            { tag: "25 fps", fields: sequence, metrics: ["Kurgu 1", "00:00:12.500", "01:02:05.500", "10.00s", "3735.50s", "25.00"], available: true, steppable: true },
            { tag: "timeline without a sequence", fields: bare, metrics: ["ACTIVE TIMELINE", "00:00:00.000", "00:00:10.000", "0.00s", "10.00s", "—"], available: true }
        ];
    }
    function test_what_is_shown_and_enabled(data) {
        objects.report(data.fields);
        open(1040, 780, "timeline");
        compare(["Sequence", "Playhead", "Duration", "Start", "End", "FPS"].map(label => metric(label).value), data.metrics);
        const usable = title => Boolean(title.endsWith("Frame") ? data.steppable : data.available);
        for (const title of cards)
            compare(titled(panel, title).enabled, usable(title), title);
        compare(titled(panel, "-1 Frame").subtitle, data.steppable ? "Bir kare geri" : "frameDuration bekleniyor");
    }

    function test_moves_the_real_playhead() {
        objects.connectHost();
        open(1040, 780, "timeline");
        const duration = objects.host.durationSeconds;
        const steps = [["+1 Second", 1], ["+1 Frame", 1.04], ["-1 Frame", 1], ["Sequence End", duration], ["-1 Second", duration - 1], ["Sequence Start", 0]];
        for (const [title, seconds] of steps) {
            mouseClick(titled(panel, title));
            fuzzyCompare(objects.host.playheadSeconds, seconds, 1e-9, title);
            compare(metric("Playhead").value, OrvexFormat.timecode(objects.host.playheadSeconds));
        }
        for (const [key, seconds] of [[Qt.Key_Right, 0.04], [Qt.Key_Left, 0], [Qt.Key_End, duration], [Qt.Key_Home, 0]]) {
            keyClick(key);
            compare(objects.host.playheadSeconds, seconds);
        }
        verify(!objects.state.hasToast);
    }

    function test_everything_can_be_scrolled_to() {
        objects.connectHost();
        open(320, 320, "timeline");
        const last = titled(panel, "Timeline bilgisini yenile");
        last.forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => last.mapToItem(named(panel, "content"), 0, last.height).y <= named(panel, "content").height);
        mouseClick(last);
        compare(objects.refreshes[objects.refreshes.length - 1], "timeline");
    }
}
