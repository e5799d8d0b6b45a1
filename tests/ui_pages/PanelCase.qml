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

    when: windowShown
    visible: true
    width: 1040
    height: 780

    function init() {
        failOnWarning(/.*/);
        OrvexMotion.reduced = true;
        // The views of the function before are gone by now; they must not outlive their objects.
        if (objects !== null)
            objects.destroy();
        objects = objectsComponent.createObject(testCase);
        verify(objects !== null);
    }

    // Makes the root view in an area of the size given, which is also the size asked for unless told
    // otherwise.
    function make(width, height, panelWidth, panelHeight) {
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
    }

    // The same, and laid out, so that it can be clicked.
    function open(width, height) {
        make(width, height);
        waitForRendering(panel);
    }

    // The first item below `item` that `matches`, in drawing order; null when there is none.
    function findItem(item, matches) {
        if (matches(item))
            return item;
        for (let i = 0; i < item.children.length; ++i) {
            const found = findItem(item.children[i], matches);
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
        for (let i = 0; i < item.children.length; ++i)
            allItems(item.children[i], matches, found);
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
