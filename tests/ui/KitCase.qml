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

    /// Makes an item of a component, with these properties, or of a line of QML.
    function make(what, properties) {
        const item = typeof what === "string" ? createTemporaryQmlObject("import QtQuick; import Orvex; " + what, stage) : createTemporaryObject(what, stage, properties ?? {});
        verify(item);
        waitForRendering(item);
        return item;
    }

    /// Counts the clicks of `item`.
    function spyOn(item) {
        return createTemporaryObject(spy, testCase, { target: item });
    }

    /// The items below `item` that `wanted` is true for.
    function below(item, wanted) {
        return [].concat(...Array.from(item.children).map(child => (wanted(child) ? [child] : []).concat(below(child, wanted))));
    }

    /// The text item that shows `text`.
    function textItem(item, text) {
        return below(item, child => child.text === text && child.visible)[0] ?? null;
    }

    Component { id: spy; SignalSpy { signalName: "clicked" } }

    Item { id: stage; anchors.fill: parent }
}
