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
    function make(width, height, panelWidth = width, panelHeight = height) {
        objects.state.panelWidth = panelWidth;
        objects.state.panelHeight = panelHeight;
        panel = createTemporaryObject(panelComponent, testCase, {
            width: width, height: height, state: objects.state, motion: objects.motion, audio: objects.audio, luts: objects.luts,
            fxplug: objects.fxplug, hostAdapter: objects.hostAdapter, desktop: objects.desktop, colorServices: objects.colorServices
        });
        verify(panel !== null);
    }

    // The same, and laid out, so that it can be clicked.
    function open(width, height, page = "home") {
        make(width, height);
        objects.state.activePage = OrvexPages.byId(page);
        waitForRendering(panel);
    }

    // The first item below `item` that `matches`, in drawing order; null when there is none.
    function findItem(item, matches) {
        return allItems(item, matches)[0] ?? null;
    }

    function named(item, objectName) {
        return findItem(item, candidate => candidate.objectName === objectName);
    }

    function showing(item, text) {
        return findItem(item, candidate => candidate.visible && candidate.text === text);
    }

    // Drops `urls` onto the page.
    function drop(...urls) {
        objects.files.dropOn(page(), urls);
    }

    function titled(item, title) {
        return findItem(item, candidate => candidate.title === title);
    }

    function metric(label) {
        return findItem(panel, candidate => candidate.label === label && candidate.value !== undefined);
    }

    function allItems(item, matches) {
        return (matches(item) ? [item] : []).concat(...Array.from(item.children).map(child => allItems(child, matches)));
    }

    function page() {
        return named(panel, "content").page;
    }

    Component { id: objectsComponent; PanelObjects {} }
    Component { id: panelComponent; OrvexRootView {} }
}
