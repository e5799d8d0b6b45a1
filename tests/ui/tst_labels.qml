import QtQuick
import Orvex

KitCase {
    name: "Labels"

    function test_metric() {
        for (const [text, truncated] of [["00:12:40.000", false], ["Düğün – Çok uzun bir sekans adı, son kurgu", true]]) {
            const tile = make(`OrvexMetric { label: "Sequence"; value: "${text}"; width: 145 }`);
            const value = textItem(tile, text);
            compare(value.truncated, truncated);
            verify(value.mapToItem(tile, value.paintedWidth, 0).x <= tile.width - 15 + 0.5);
            compare(setup.accessibleText(tile), "Sequence: " + text);
        }
    }

    function test_theFontDrawsAllSymbols() {
        compare(setup.undrawnSymbols(), []);
        for (const page of OrvexPages.all)
            verify(make(`OrvexSymbol { name: "${page.icon}" }`).implicitWidth > 0);
    }
}
