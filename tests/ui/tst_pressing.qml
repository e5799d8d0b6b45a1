import QtQuick

KitCase {
    id: testCase

    name: "Pressing"

    readonly property string toolCard: "OrvexToolCard { icon: 'bolt.fill'; subtitle: 'Seçili klibin hızı'; title: 'Speed Point'; width: 260 }"
    readonly property string primaryButton: "OrvexPrimaryButton { icon: 'bolt.fill'; title: 'Speed Point'; width: 260 }"
    readonly property string textButton: "OrvexTextButton { title: 'Speed Point' }"

    function test_pressed_data() {
        return [toolCard, primaryButton, textButton].map(source => ({ tag: source.split(" ")[0], source: source }));
    }
    function test_pressed(data) {
        const item = make(data.source);
        const clicks = spyOn(item);
        mouseClick(item);
        compare(clicks.count, 1);
        verify(item.activeFocus && !item.visualFocus);

        testCase.forceActiveFocus();
        item.forceActiveFocus(Qt.TabFocusReason);
        verify(item.visualFocus);
        // What was started from the keyboard is over.
        item.enabled = false;
        item.enabled = true;
        verify(item.visualFocus);
        mouseMove(item, 3, 3);
        verify(item.hovered);
        for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter]) {
            clicks.clear();
            keyPress(key);
            verify(item.pressed);
            keyRelease(key);
            compare([clicks.count, item.pressed], [1, false]);
        }
        clicks.clear();
        verify(setup.pressAccessibly(item));
        compare(clicks.count, 1);
        compare(setup.accessibleText(item), "Speed Point");

        // A press that ends elsewhere is none, nor is a key that loses the focus.
        clicks.clear();
        mousePress(item);
        mouseMove(testCase, 600, 470, -1, Qt.LeftButton);
        verify(!item.pressed);
        mouseRelease(testCase, 600, 470);
        keyPress(Qt.Key_Space);
        testCase.forceActiveFocus();
        verify(!item.pressed);
        item.forceActiveFocus();
        keyRelease(Qt.Key_Space);
        compare(clicks.count, 0);
    }

    function test_disabled() {
        for (const source of [toolCard.replace("}", "; enabled: false }"), primaryButton.replace("}", "; disabled: true }")]) {
            const item = make(source);
            const clicks = spyOn(item);
            mouseClick(item);
            item.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space);
            verify(setup.pressAccessibly(item));
            compare([clicks.count, item.activeFocus], [0, false]);
        }
    }

    // The lifted card does not slip from under the pointer.
    function test_toolCardLifts() {
        const card = make(toolCard);
        for (const y of [card.height / 2, card.height - 1]) {
            mouseMove(card, card.width / 2, y);
            compare(card.contentItem.transform[0].y, -2);
        }
    }
}
