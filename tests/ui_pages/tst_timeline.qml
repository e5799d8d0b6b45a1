import QtQuick
import QtTest
import Orvex
import Orvex.Pages

PanelCase {
    name: "Timeline"

    readonly property var cards: ["Sequence Start", "Sequence End", "-1 Frame", "+1 Frame", "-1 Second", "+1 Second"]

    // Opens the page beside the actions that it calls, which only write themselves down.
    property var calls: []

    Component {
        id: recordingPage

        OrvexTimelineView {
            width: 700
            height: 600
            onMoveStart: calls.push("start")
            onMoveEnd: calls.push("end")
            onMoveSeconds: seconds => calls.push("seconds " + seconds)
            onMoveFrames: count => calls.push("frames " + count)
            onRefresh: calls.push("refresh")
        }
    }

    function openRecording() {
        calls = [];
        panel = null;
        const view = createTemporaryObject(recordingPage, this, { state: objects.state });
        waitForRendering(view);
        return view;
    }

    function test_cards_call_their_actions() {
        objects.report({ sequenceAvailable: true, frameDurationSeconds: 0.04 });
        const view = openRecording();
        for (const title of cards.concat("Timeline bilgisini yenile"))
            mouseClick(titled(view, title));
        compare(calls, ["start", "end", "frames -1", "frames 1", "seconds -1", "seconds 1", "refresh"]);
        calls = [];
        view.forceActiveFocus();
        for (const key of [Qt.Key_Left, Qt.Key_Right, Qt.Key_Home, Qt.Key_End])
            keyClick(key);
        compare(calls, ["frames -1", "frames 1", "start", "end"]);
    }

    function test_what_is_shown_and_enabled_data() {
        const sequence = {
            connected: true,
            sequenceAvailable: true,
            sequenceName: "Kurgu 1",
            sequenceStartSeconds: 10,
            sequenceDurationSeconds: 3725.5,
            frameDurationSeconds: 0.04,
            fps: 25,
            playheadSeconds: 12.5
        };
        const bare = { connected: true, sequenceAvailable: true, sequenceName: "ACTIVE TIMELINE", sequenceDurationSeconds: 10 };
        const odd = { connected: true, sequenceStartSeconds: NaN, sequenceDurationSeconds: Infinity, playheadSeconds: -Infinity, fps: Infinity };
        const none = ["NO SEQUENCE", "00:00:00.000", "00:00:00.000", "0.00s", "0.00s", "—"];
        return [
            { tag: "disconnected", fields: {}, metrics: none },
            { tag: "frame duration without a sequence", fields: { connected: true, frameDurationSeconds: 0.04 }, metrics: none },
            { tag: "not finite", fields: odd, metrics: ["NO SEQUENCE", "—", "—", "—", "—", "—"] },
            {
                tag: "25 fps",
                fields: sequence,
                metrics: ["Kurgu 1", "00:00:12.500", "01:02:05.500", "10.00s", "3735.50s", "25.00"],
                available: true,
                steppable: true
            },
            {
                tag: "timeline without a sequence",
                fields: bare,
                metrics: ["ACTIVE TIMELINE", "00:00:00.000", "00:00:10.000", "0.00s", "10.00s", "—"],
                available: true
            }
        ];
    }
    function test_what_is_shown_and_enabled(data) {
        objects.report(data.fields);
        const view = openRecording();
        const shown = ["Sequence", "Playhead", "Duration", "Start", "End", "FPS"].map(label => findItem(view, item => item.label === label).value);
        compare(shown, data.metrics);
        for (const title of cards) {
            const usable = title.endsWith("Frame") ? data.steppable : data.available;
            calls = [];
            mouseClick(titled(view, title));
            compare(calls.length, usable ? 1 : 0, title);
        }
        compare(titled(view, "-1 Frame").subtitle, data.steppable ? "Bir kare geri" : "frameDuration bekleniyor");
        compare(titled(view, "+1 Frame").subtitle, data.steppable ? "Bir kare ileri" : "frameDuration bekleniyor");
        calls = [];
        keyClick(Qt.Key_Left);
        mouseClick(titled(view, "Timeline bilgisini yenile"));
        compare(calls, data.steppable ? ["frames -1", "refresh"] : ["refresh"]);
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
        verify(!objects.state.hasToast);
    }

    // The page can be used at every size: nothing sticks out, everything can be scrolled to.
    function test_fits_data() {
        return [[1040, 780], [979, 780], [360, 640], [320, 320]].map(([width, height]) => ({ tag: width + " × " + height, width: width, height: height }));
    }
    function test_fits(data) {
        objects.connectHost();
        open(data.width, data.height, "timeline");
        const content = named(panel, "content");
        for (const item of cards.map(title => titled(panel, title)).concat(["Sequence", "FPS"].map(metric))) {
            const left = item.mapToItem(content, 0, 0).x;
            verify(left >= 16 && left + item.width <= content.width - 16);
        }
        const last = titled(panel, "Timeline bilgisini yenile");
        last.forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => last.mapToItem(content, 0, last.height).y <= content.height);
        mouseClick(last);
        compare(objects.refreshes[objects.refreshes.length - 1], "timeline");
    }
}
