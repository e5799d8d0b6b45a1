import QtQuick
import QtTest
import Orvex
import Orvex.Pages

PanelCase {
    id: test

    name: "BuiltInHostStrip"

    property BuiltInHostStrip strip: null

    Component {
        id: stripComponent

        BuiltInHostStrip {}
    }

    function openStrip(width) {
        strip = createTemporaryObject(stripComponent, test, {
            host: objects.host,
            width: width,
            y: 400
        });
        strip.height = strip.implicitHeight;
        waitForRendering(strip);
    }

    function widths() {
        return [
            {
                tag: "narrow",
                width: 360
            },
            {
                tag: "wide",
                width: 1040
            }
        ];
    }

    function test_scrubbing_data() {
        return widths();
    }
    function test_scrubbing(data) {
        openStrip(data.width);
        const scrubber = named(strip, "scrubber");
        const playhead = named(strip, "playhead");
        const duration = objects.host.durationSeconds;
        mousePress(scrubber, scrubber.width / 4, 30);
        fuzzyCompare(objects.host.playheadSeconds, duration / 4, 0.05);
        mouseMove(scrubber, scrubber.width / 2, 30);
        fuzzyCompare(objects.host.playheadSeconds, duration / 2, 0.05);
        fuzzyCompare(playhead.x, scrubber.width / 2, 1);
        // Past the edge is the edge.
        mouseMove(scrubber, scrubber.width + 40, 30);
        compare(objects.host.playheadSeconds, duration);
        mouseRelease(scrubber, scrubber.width + 40, 30);
        compare(named(strip, "timecode").text, OrvexFormat.timecode(duration));
    }

    function test_keyboard() {
        openStrip(700);
        strip.forceActiveFocus();
        const host = objects.host;
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Left);
        compare(host.playheadSeconds, 0.04);
        keyClick(Qt.Key_End);
        compare(host.playheadSeconds, host.durationSeconds);
        keyClick(Qt.Key_Home);
        compare(host.playheadSeconds, 0);
        keyClick(Qt.Key_Space);
        verify(host.playing);
        tryVerify(() => host.playheadSeconds > 0);
        keyClick(Qt.Key_Space);
        verify(!host.playing);
    }

    function test_play_button() {
        openStrip(700);
        const play = named(strip, "play");
        compare(play.Accessible.name, "Oynat");
        mouseClick(play);
        verify(objects.host.playing);
        compare(play.Accessible.name, "Duraklat");
        mouseClick(play);
        verify(!objects.host.playing);
        // With the button focused the bar presses it, once.
        play.forceActiveFocus();
        keyClick(Qt.Key_Space);
        verify(objects.host.playing);
    }

    function test_frame_rate() {
        openStrip(700);
        const picker = named(strip, "frameRate");
        compare(picker.displayText, "25 fps");
        mouseClick(picker);
        tryCompare(picker.popup, "opened", true);
        keyClick(Qt.Key_Home);
        keyClick(Qt.Key_Return);
        tryCompare(picker.popup, "visible", false);
        compare(objects.host.frameRate, "24000/1001");
        compare(picker.displayText, "23.976 fps");
        objects.host.frameRate = "60";
        compare(picker.displayText, "60 fps");
    }

    function test_timeline_actions_show() {
        openStrip(700);
        const host = objects.host;
        compare(allItems(strip, item => item.objectName === "clip").length, host.clips.length);
        const bands = () => allItems(strip, item => item.objectName === "retimeBand" && item.visible).length;
        compare(bands(), 0);
        host.performTimelineAction("toggle-retime");
        compare(bands(), host.clips.length);
        const speed = named(strip, "speed");
        verify(!speed.visible);
        host.setSpeedPercent(50);
        verify(speed.visible);
        compare(speed.text, "Hız %50");
        host.seek(host.durationSeconds / 2);
        host.performTimelineAction("blade-speed");
        const points = () => allItems(strip, item => item.objectName === "speedPoint");
        compare(points().length, 1);
        fuzzyCompare(points()[0].x, points()[0].parent.width / 2, 1);
        host.performTimelineAction("normal-speed");
        compare(points().length, 0);
        verify(!speed.visible);
        host.performTimelineAction("toggle-retime");
        compare(bands(), 0);
    }

    function test_nothing_overlaps_data() {
        return widths();
    }
    function test_nothing_overlaps(data) {
        objects.host.setSpeedPercent(10000);
        openStrip(data.width);
        const row = ["play", "timecode", "speed", "frameRate"].map(name => named(strip, name));
        for (let i = 1; i < row.length; ++i)
            verify(row[i - 1].x + row[i - 1].width <= row[i].x, row[i].objectName);
        const last = row[row.length - 1];
        verify(last.x + last.width <= last.parent.width);
    }
}
