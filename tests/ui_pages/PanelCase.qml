import QtQuick
import QtTest
import Orvex
import Orvex.Pages
import Orvex.Test

// A test case with a fresh panel for every test function. Motion is reduced unless a test asks for
// it, and every warning fails the test.
TestCase {
    id: testCase

    property PanelObjects objects: null
    property OrvexRootView panel: null
    readonly property var state_: testCase.objects === null ? null : testCase.objects.state

    when: windowShown
    width: 1040
    height: 780

    function init() {
        failOnWarning(/.*/);
        OrvexMotion.reduced = true;
        objects = createTemporaryObject(objectsComponent, testCase);
        verify(objects !== null);
    }

    // Shows the root view in an area of the size given, which is also the size asked for unless
    // told otherwise.
    function open(width, height, panelWidth, panelHeight) {
        objects.state.panelWidth = panelWidth === undefined ? width : panelWidth;
        objects.state.panelHeight = panelHeight === undefined ? height : panelHeight;
        panel = createTemporaryObject(panelComponent, testCase, {
            width: width,
            height: height,
            state: objects.state,
            motion: objects.motion,
            audio: objects.audio,
            luts: objects.luts,
            fxplug: objects.fxplug,
            hostAdapter: objects.hostAdapter
        });
        verify(panel !== null);
        waitForRendering(panel);
    }

    // The first item below `item` that `matches`, in drawing order; null when there is none.
    function findItem(item, matches) {
        if (matches(item))
            return item;
        for (const child of item.children) {
            const found = findItem(child, matches);
            if (found !== null)
                return found;
        }
        return null;
    }

    function named(item, objectName) {
        return findItem(item, candidate => candidate.objectName === objectName);
    }

    function showing(item, text) {
        return findItem(item, candidate => candidate.visible && candidate.text === text);
    }

    function titled(item, title) {
        return findItem(item, candidate => candidate.title === title);
    }

    function metric(label) {
        return findItem(panel, candidate => candidate.label === label && candidate.value !== undefined);
    }

    function allItems(item, matches, found = []) {
        if (matches(item))
            found.push(item);
        for (const child of item.children)
            allItems(child, matches, found);
        return found;
    }

    function page() {
        return named(panel, "content").page;
    }

    Component {
        id: objectsComponent

        PanelObjects {}
    }

    Component {
        id: panelComponent

        OrvexRootView {}
    }
}
