import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Labels"

    readonly property string longText: "Düğün – Çok uzun bir sekans adı, son kurgu, on ikinci sürüm"

    Component {
        id: metric

        OrvexMetric {
            label: "Sequence"
            width: 145
        }
    }

    Component {
        id: engineCard

        OrvexEngineStatusCard {
            width: 260
        }
    }

    function test_metric_data() {
        return [
            { tag: "timecode in the narrowest column", value: "00:12:40.000", truncated: false },
            { tag: "long", value: testCase.longText, truncated: true },
            { tag: "markup", value: "<b>A</b>", truncated: false }
        ];
    }

    function test_metric(data) {
        const tile = make(metric, { value: data.value });
        const value = textItem(tile, data.value);
        compare(value.truncated, data.truncated);
        verify(value.mapToItem(tile, value.paintedWidth, 0).x <= tile.width - 15 + 0.5);
        compare(setup.accessibleText(tile), "Sequence: " + data.value);
    }

    function test_engineHealth_data() {
        return [
            { tag: "READY", health: EngineHealth.Ready, color: OrvexTheme.success },
            { tag: "ACCESS", health: EngineHealth.NeedsAccess, color: OrvexTheme.warning },
            { tag: "EMPTY", health: EngineHealth.Empty, color: OrvexTheme.muted },
            { tag: "OFFLINE", health: EngineHealth.Unavailable, color: OrvexTheme.danger },
            { tag: "ERROR", health: EngineHealth.Error, color: OrvexTheme.danger }
        ];
    }

    function test_engineHealth(data) {
        const card = make(engineCard, {
            actionTitle: "Yenile",
            summary: setup.summary(data.health, "LUT Library", "/luts", 1234567)
        });
        compare(String(textItem(card, data.tag).color), String(data.color));
        compare(setup.accessibleText(card), "LUT Library: " + data.tag + ", 1234567");
        const clicks = spyOn(card);
        mouseClick(below(card, item => item.clicked !== undefined)[0]);
        mouseClick(card, 5, 5);
        compare(clicks.count, 1);
    }
}
