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

    function test_metric() {
        for (const [text, truncated] of [["00:12:40.000", false], ["Düğün – Çok uzun bir sekans adı, son kurgu", true]]) {
            const tile = make(metric, { value: text });
            const value = textItem(tile, text);
            compare(value.truncated, truncated);
            verify(value.mapToItem(tile, value.paintedWidth, 0).x <= tile.width - 15 + 0.5);
            compare(setup.accessibleText(tile), "Sequence: " + text);
        }
    }
}
