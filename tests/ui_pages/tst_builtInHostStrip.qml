import QtQuick
import Orvex
import Orvex.Pages

PanelCase {
    id: test

    name: "BuiltInHostStrip"

    property BuiltInHostStrip strip: null

    Component { id: stripComponent; BuiltInHostStrip {} }

    function openStrip(width) {
        strip = createTemporaryObject(stripComponent, test, { host: objects.host, width: width, y: 400 });
        strip.height = strip.implicitHeight;
        waitForRendering(strip);
    }

    function test_scrubbing() {
        objects.host.speedPercent = 10000;
        openStrip(360);
        const scrubber = named(strip, "scrubber");
        const duration = objects.host.durationSeconds;
        mousePress(scrubber, scrubber.width / 4, 30);
        fuzzyCompare(objects.host.playheadSeconds, duration / 4, 0.05);
        mouseMove(scrubber, scrubber.width / 2, 30);
        fuzzyCompare(named(strip, "playhead").x, scrubber.width / 2, 1);
        // Past the edge is the edge.
        mouseMove(scrubber, scrubber.width + 40, 30);
        compare(objects.host.playheadSeconds, duration);
        mouseRelease(scrubber, scrubber.width + 40, 30);
        compare(named(strip, "timecode").text, OrvexFormat.timecode(duration));

        const row = ["play", "timecode", "speed", "frameRate"].map(name => named(strip, name));
        for (let i = 1; i < row.length; ++i)
            verify(row[i - 1].x + row[i - 1].width <= row[i].x, row[i].objectName);
        verify(row[3].x + row[3].width <= row[3].parent.width);
    }

    function test_keyboard() {
        openStrip(700);
        strip.forceActiveFocus();
        const host = objects.host;
        for (const [key, seconds] of [[Qt.Key_Right, 0.04], [Qt.Key_Right, 0.08], [Qt.Key_Left, 0.04], [Qt.Key_End, host.durationSeconds], [Qt.Key_Home, 0]]) {
            keyClick(key);
            compare(host.playheadSeconds, seconds);
        }
        keyClick(Qt.Key_Space);
        verify(host.playing);
        // With the button focused the bar presses it, once.
        named(strip, "play").forceActiveFocus();
        keyClick(Qt.Key_Space);
        verify(!host.playing);
    }

    function test_timeline_actions_show() {
        openStrip(700);
        const host = objects.host;
        const shown = name => allItems(strip, item => item.objectName === name && item.visible);
        compare(["clip", "retimeBand", "speed", "speedPoint"].map(name => shown(name).length), [host.clips.length, 0, 0, 0]);
        host.applyLUT("Işık");
        compare(shown("clipLUT").map(label => label.text), ["Işık"]);
        host.performTimelineAction("toggle-retime");
        host.speedPercent = 50;
        compare(shown("speed")[0].text, "Hız %50");
        host.seek(host.durationSeconds / 2);
        host.performTimelineAction("blade-speed");
        compare(["retimeBand", "speedPoint"].map(name => shown(name).length), [host.clips.length, 1]);
        fuzzyCompare(shown("speedPoint")[0].x, named(strip, "scrubber").width / 2, 1);
        host.performTimelineAction("normal-speed");
        compare(shown("speed").length + shown("speedPoint").length, 0);
    }
}
