import QtQuick
import QtTest
import Orvex

KitCase {
    name: "Symbols"

    Component {
        id: symbol

        OrvexSymbol {
        }
    }

    function test_theFontDrawsAllOfThem() {
        compare(setup.undrawnSymbols(), []);
    }

    function test_everyPageHasOne() {
        compare(OrvexPages.all.length, 9);
        for (const page of OrvexPages.all) {
            const item = make(symbol, {
                name: page.icon
            });
            verify(item.implicitWidth > 0);
            verify(!setup.accessible(item));
        }
    }

    function test_anUnknownNameIsSeen() {
        ignoreWarning(/no symbol is named "no.such.thing"/);
        const item = make(symbol, {
            name: "no.such.thing"
        });
        compare(item.text, "\ue8fd");
    }
}
