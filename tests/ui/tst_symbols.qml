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

    function test_anUnknownNameIsSeen() {
        ignoreWarning(/no symbol is named "no.such.thing"/);
        compare(make(symbol, { name: "no.such.thing" }).text, "\ue8fd");
    }
}
