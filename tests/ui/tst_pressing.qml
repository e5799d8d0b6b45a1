import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Pressing"

    Component {
        id: toolCard

        OrvexToolCard {
            icon: "bolt.fill"
            subtitle: "Seçili klibin hızı"
            title: "Speed Point"
            width: 260
        }
    }

    Component {
        id: primaryButton

        OrvexPrimaryButton {
            icon: "bolt.fill"
            title: "Speed Point"
            width: 260
        }
    }

    Component {
        id: textButton

        OrvexTextButton {
            title: "Speed Point"
        }
    }

    Component {
        id: twoCards

        Column {
            property alias first: first
            property alias second: second

            OrvexToolCard {
                id: first

                icon: "bolt.fill"
                subtitle: ""
                title: "A"
            }

            OrvexToolCard {
                enabled: false
                icon: "bolt.fill"
                subtitle: ""
                title: "B"
            }

            OrvexPrimaryButton {
                id: second

                icon: "bolt.fill"
                title: "C"
            }
        }
    }

    function test_pressed_data() {
        return [
            { tag: "tool card", component: toolCard },
            { tag: "primary button", component: primaryButton },
            { tag: "text button", component: textButton }
        ];
    }

    function test_pressed(data) {
        const item = make(data.component);
        const clicks = spyOn(item);
        mouseClick(item);
        compare(clicks.count, 1);
        verify(item.activeFocus && !item.visualFocus);

        testCase.forceActiveFocus();
        item.forceActiveFocus(Qt.TabFocusReason);
        verify(item.visualFocus);
        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter]) {
            clicks.clear();
            keyPress(key);
            verify(item.pressed);
            keyRelease(key);
            compare(clicks.count, 1);
            verify(!item.pressed);
        }

        clicks.clear();
        keyClick(Qt.Key_A);
        compare(clicks.count, 0);
        verify(setup.pressAccessibly(item));
        compare(clicks.count, 1);
        compare(setup.accessibleText(item), "Speed Point");

        // A press that ends elsewhere is none.
        clicks.clear();
        mousePress(item);
        verify(item.pressed);
        mouseMove(testCase, 600, 470, -1, Qt.LeftButton);
        verify(!item.pressed);
        mouseRelease(testCase, 600, 470);
        compare(clicks.count, 0);
    }

    function test_focus() {
        const cards = make(twoCards);
        const clicks = spyOn(cards.first);
        cards.first.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        verify(cards.second.visualFocus, "Tab skips what is disabled");
        keyClick(Qt.Key_Backtab);
        verify(cards.first.visualFocus);
        // A key that loses the focus is no press.
        keyPress(Qt.Key_Space);
        cards.second.forceActiveFocus();
        verify(!cards.first.pressed);
        cards.first.forceActiveFocus();
        keyRelease(Qt.Key_Space);
        compare(clicks.count, 0);
    }

    function test_disabled_data() {
        return [
            { tag: "tool card", component: toolCard, properties: { enabled: false } },
            { tag: "primary button", component: primaryButton, properties: { disabled: true } }
        ];
    }

    function test_disabled(data) {
        const item = make(data.component, data.properties);
        const clicks = spyOn(item);
        mouseClick(item);
        item.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        verify(setup.pressAccessibly(item));
        compare(clicks.count, 0);
        verify(!item.activeFocus);
    }

    function test_toolCardLifts() {
        const card = make(toolCard);
        const lift = card.contentItem;
        for (const enabled of [true, false]) {
            card.enabled = enabled;
            fuzzyCompare(lift.opacity, enabled ? 1 : 0.42, 0.0001);
            compare(lift.scale, 1);
            // The lifted card does not slip from under the pointer.
            for (const y of [card.height / 2, card.height - 1]) {
                mouseMove(card, card.width / 2, y);
                fuzzyCompare(lift.scale, 1.012, 0.0001);
                compare(lift.transform[0].y, -2);
            }
            mouseMove(testCase, 600, 470);
            compare(lift.scale, 1);
            compare(lift.transform[0].y, 0);
        }
    }
}
