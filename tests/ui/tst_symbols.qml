import QtQuick
import QtTest
import Orvex

KitCase {
    name: "Symbols"

    Component {
        id: symbol

        OrvexSymbol {}
    }

    function test_theFontDrawsAllOfThem() {
        compare(setup.undrawnSymbols(), []);
        for (const page of OrvexPages.all)
            verify(make(symbol, { name: page.icon }).implicitWidth > 0);
    }
}
