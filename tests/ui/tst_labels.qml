import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Labels"

    readonly property string longText: "Düğün – Çok uzun bir sekans adı, son kurgu, on ikinci sürüm"

    Component {
        id: sectionTitle

        OrvexSectionTitle {
            eyebrow: "ORVEX"
            title: "Timeline"
            width: 300
        }
    }

    Component {
        id: metric

        OrvexMetric {
            label: "Sequence"
            width: 145
        }
    }

    Component {
        id: badge

        OrvexStatusBadge {
        }
    }

    Component {
        id: engineCard

        OrvexEngineStatusCard {
            width: 260
        }
    }

    Component {
        id: empty

        EmptyEngineView {
            icon: "waveform"
            message: testCase.longText + testCase.longText + testCase.longText
            title: "Yok"
        }
    }

    Component {
        id: clickSpy

        SignalSpy {
            signalName: "clicked"
        }
    }

    function test_sectionTitleWithoutSubtitleHasTwoLines() {
        const title = make(sectionTitle);
        const lines = below(title, item => item.visible && item.text !== undefined);
        compare(lines.length, 2);
        const height = title.implicitHeight;
        title.subtitle = "Alt başlık";
        tryVerify(() => title.implicitHeight > height);
        compare(setup.accessibleText(title), "Timeline");
    }

    function test_metric_data() {
        return [
            {
                tag: "short",
                value: "25.00",
                truncated: false
            },
            {
                tag: "timecode in the narrowest column",
                value: "00:12:40.000",
                truncated: false
            },
            {
                tag: "long",
                value: testCase.longText,
                truncated: true
            },
            {
                tag: "markup",
                value: "<b>A</b>",
                truncated: false
            }
        ];
    }

    function test_metric(data) {
        const tile = make(metric, {
            value: data.value
        });
        const value = textItem(tile, data.value);
        compare(value.truncated, data.truncated);
        compare(value.textFormat, Text.PlainText);
        verify(value.mapToItem(tile, value.paintedWidth, 0).x <= tile.width - 15 + 0.5);
        compare(setup.accessibleText(tile), "Sequence: " + data.value);
    }

    function test_metricHeightDoesNotDependOnTheValue() {
        const tile = make(metric, {
            value: "1"
        });
        const height = tile.implicitHeight;
        tile.value = longText;
        wait(0);
        compare(tile.implicitHeight, height);
    }

    function test_metricShowsAllOfALongValue() {
        const tile = make(metric, {
            value: longText,
            y: 100
        });
        const tip = Array.from(tile.contentItem.resources).find(object => object.text === longText);
        verify(!tip.visible);
        mouseMove(tile, 40, 30);
        tryCompare(tip, "visible", true);
        mouseMove(testCase, 600, 470);
        tryCompare(tip, "visible", false);
        tile.value = "kısa";
        mouseMove(tile, 40, 30);
        wait(OrvexTheme.toolTipDelay + 200);
        verify(!tip.visible);
    }

    function test_badge() {
        const item = make(badge, {
            connected: true
        });
        verify(textItem(item, "LIVE"));
        item.connected = false;
        verify(textItem(item, "OFFLINE"));
    }

    function test_engineHealth_data() {
        return [
            {
                tag: "ready",
                health: EngineHealth.Ready,
                word: "READY",
                color: OrvexTheme.success
            },
            {
                tag: "needsAccess",
                health: EngineHealth.NeedsAccess,
                word: "ACCESS",
                color: OrvexTheme.warning
            },
            {
                tag: "empty",
                health: EngineHealth.Empty,
                word: "EMPTY",
                color: OrvexTheme.muted
            },
            {
                tag: "unavailable",
                health: EngineHealth.Unavailable,
                word: "OFFLINE",
                color: OrvexTheme.danger
            },
            {
                tag: "error",
                health: EngineHealth.Error,
                word: "ERROR",
                color: OrvexTheme.danger
            }
        ];
    }

    function test_engineHealth(data) {
        const card = make(engineCard, {
            summary: setup.summary(data.health, "LUT Library", "/luts", 1234567)
        });
        compare(String(textItem(card, data.word).color), String(data.color));
        verify(textItem(card, "1234567"));
        compare(setup.accessibleText(card), "LUT Library: " + data.word + ", 1234567");
    }

    function test_engineAction() {
        const card = make(engineCard, {
            summary: setup.summary(EngineHealth.Ready, "LUT Library", "/luts", 1)
        });
        const buttons = () => below(card, item => item.clicked !== undefined && item.visible);
        compare(buttons().length, 0);
        card.actionTitle = "Yenile";
        waitForRendering(card);
        const clicks = createTemporaryObject(clickSpy, testCase, {
            target: card
        });
        mouseClick(buttons()[0]);
        compare(clicks.count, 1);
        mouseClick(card, 5, 5);
        compare(clicks.count, 1);
    }

    function test_emptyViewWrapsItsMessage() {
        const view = make(empty, {
            width: 640
        });
        const message = textItem(view, view.message);
        tryCompare(message, "width", 520);
        verify(message.lineCount > 1);
        verify(!message.truncated);
        view.width = 300;
        tryCompare(message, "width", 300 - 2 * 28);
    }
}
