import QtQuick
import QtTest
import Orvex

// A case whose tests fail on every warning, with room for one item. The pointer rests outside of it.
TestCase {
    id: testCase

    default property alias stage: stage.data

    height: 480
    visible: true
    when: windowShown
    width: 640

    function init() {
        failOnWarning(/.?/);
        testCase.OrvexMotion.reduced = true;
        mouseMove(testCase, width - 1, height - 1);
    }

    function make(component, properties) {
        const item = createTemporaryObject(component, stage, properties ?? {});
        verify(item);
        waitForRendering(item);
        return item;
    }

    /// The items below `item` that `wanted` is true for.
    function below(item, wanted) {
        let found = [];
        for (const child of Array.from(item.children)) {
            if (wanted(child))
                found.push(child);
            found = found.concat(below(child, wanted));
        }
        return found;
    }

    /// The text item that shows `text`.
    function textItem(item, text) {
        const found = below(item, child => child.text === text && child.visible);
        return found.length > 0 ? found[0] : null;
    }

    Item {
        id: stage

        anchors.fill: parent
    }
}
