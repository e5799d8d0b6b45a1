import QtQuick
import QtTest
import Orvex

KitCase {
    name: "Labels"

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
            actionTitle: "Yenile"
            width: 260
        }
    }

    function test_metric() {
        for (const [text, truncated] of [["00:12:40.000", false], ["Düğün – Çok uzun bir sekans adı, son kurgu", true]]) {
            const tile = make(metric, { value: text });
            const value = textItem(tile, text);
            compare(value.truncated, truncated);
            verify(value.mapToItem(tile, value.paintedWidth, 0).x <= tile.width - 15 + 0.5);
            compare(setup.accessibleText(tile), "Sequence: " + text);
        }
    }

    function test_engineHealth() {
        const words = { ACCESS: [EngineHealth.NeedsAccess, OrvexTheme.warning], OFFLINE: [EngineHealth.Unavailable, OrvexTheme.danger] };
        for (const word in words) {
            const card = make(engineCard, { summary: setup.summary(words[word][0], "LUT Library", "/luts", 1234567) });
            compare(String(textItem(card, word).color), String(words[word][1]));
            compare(setup.accessibleText(card), "LUT Library: " + word + ", 1234567");
            const clicks = spyOn(card);
            mouseClick(below(card, item => item.clicked !== undefined)[0]);
            mouseClick(card, 5, 5);
            compare(clicks.count, 1);
        }
    }
}
