import QtQuick
import Orvex

PanelCase {
    name: "Navigation"

    readonly property var ids: ["home", "timeline", "speed", "motion", "audio", "color", "fxplug", "updates", "request"]
    readonly property var titles: ["Orvex Host Center", "Timeline Control", "Speed Ramp & Curves", "Motion Template Registry", "Audio Unit Registry", "Color & LUT Library", "FxPlug Registry", "Update Center", "İstek Merkezi"]

    function test_every_entry_shows_its_page_data() {
        return [1040, 700, 320].map(width => ({ tag: width, width: width }));
    }
    function test_every_entry_shows_its_page(data) {
        open(data.width, 780);
        compare(OrvexPages.all.map(page => page.id), ids);
        // From the last to the first, so that every step changes the page.
        for (const id of ids.slice().reverse()) {
            const button = named(panel, "navigation " + id);
            if (button.compact)
                bringIntoView(button);
            mouseClick(button);
            compare(objects.state.activePage.id, id);
            verify(showing(page(), titles[ids.indexOf(id)]) !== null, id);
            verify(button.selected);
            compare(allItems(panel, item => item.page !== undefined && item.selected === true).length, 1);
            compare(panel.compactNavFocus, id);
        }
    }

    function bringIntoView(button) {
        const way = OrvexPages.indexOf(button.page) - OrvexPages.indexOf(OrvexPages.byId(panel.compactNavFocus));
        for (let i = 0; i < Math.abs(way); ++i)
            mouseClick(arrow(way < 0 ? "backward" : "forward"));
        verifyInView(button);
    }

    function verifyInView(button) {
        const strip = named(panel, "strip");
        const x = button.mapToItem(strip, 0, 0).x;
        verify(x >= 0 && x + button.width <= strip.width, button.page.id);
    }

    function arrow(name) {
        return findItem(named(panel, name), item => item.clicked !== undefined && item.pressed !== undefined);
    }

    function test_arrows_stop_at_the_ends() {
        open(360, 640, "audio");
        const button = named(panel, "navigation audio");
        const strip = named(panel, "strip");
        fuzzyCompare(button.mapToItem(strip, button.width / 2, 0).x, strip.width / 2, 1, "begins in the middle");
        for (const [way, end, x] of [["backward", "home", 0], ["forward", "request", strip.contentWidth - strip.width]]) {
            for (let i = 0; i < 9; ++i)
                mouseClick(arrow(way));
            compare(panel.compactNavFocus, end);
            compare(strip.contentX, x);
            strip.contentX = strip.contentWidth - strip.width - x;
            mouseClick(arrow(way));
            compare(strip.contentX, x, "comes back from where it was dragged to");
        }
        compare(objects.state.activePage.id, "audio", "the arrows only move the strip");
        objects.state.activePage = OrvexPages.byId("motion");
        compare(panel.compactNavFocus, "motion", "until another page is shown");
        mouseClick(arrow("forward"));
        strip.contentX = 0;
        objects.state.activePage = OrvexPages.byId("audio");
        fuzzyCompare(button.mapToItem(strip, button.width / 2, 0).x, strip.width / 2, 1, "also one that has the focus");
    }

    function test_layout_follows_the_size_asked_for_data() {
        // What is offered and asked for, what becomes of it, whether it is compact, where it begins.
        const widths = [[1040, 979, 979, true], [1040, 980, 980, false], [1040, 319, 1040, false], [1040, 320, 320, true], [700, 1040, 700, true], [1040, NaN, 1040, false]];
        const heights = [[780, 780, 780, 0], [780, 500, 500, 280], [780, 778.5, 778.5, 1.5], [780, 319, 780, 0], [400, 780, 400, 0]];
        return widths.map(row => ({ tag: "width " + row, width: row, height: heights[0] })).concat(heights.map(row => ({ tag: "height " + row, width: widths[1], height: row })));
    }
    function test_layout_follows_the_size_asked_for(data) {
        make(data.width[0], data.height[0], data.width[1], data.height[1]);
        const shown = named(panel, "panel");
        compare([shown.width, panel.compact], data.width.slice(2));
        compare([shown.height, shown.y], data.height.slice(2));
        compare(named(panel, "sidebar") === null, panel.compact);
        compare(named(panel, "compactNavigation") === null, !panel.compact);
    }

    function test_page_is_built_anew_on_every_switch_only() {
        open(1040, 780, "timeline");
        const first = page();
        objects.state.panelWidth = 700;
        verify(panel.compact);
        compare(page(), first, "a new layout keeps the page");
        objects.state.activePage = OrvexPages.byId("home");
        objects.state.activePage = OrvexPages.byId("timeline");
        verify(page() !== first);
        verify(objects.readsFromTheFirstFrame(panel), "the inventories wait for the window");
    }

    function test_keyboard_data() {
        return [{ tag: "wide", width: 1040 }, { tag: "compact", width: 320 }];
    }
    function test_keyboard(data) {
        open(data.width, 640);
        panel.forceActiveFocus();
        keyClick(Qt.Key_9, Qt.ControlModifier);
        compare(objects.state.activePage.id, "request");
        keyClick(Qt.Key_2, Qt.ControlModifier);
        compare(objects.state.activePage.id, "timeline");
        keyClick(Qt.Key_3, Qt.ControlModifier);
        waitForRendering(panel);
        keyClick(Qt.Key_PageDown);
        verify(page().contentY > 0, "the page gets what the navigation does not take");
        keyClick(Qt.Key_4, Qt.ControlModifier);
        named(page(), "kind").popup.open();
        keyClick(Qt.Key_2, Qt.ControlModifier);
        compare(objects.state.activePage.id, "motion", "behind an open list");
        named(page(), "kind").popup.close();
        const button = named(panel, "navigation updates");
        for (let i = 0; i < 20 && !button.activeFocus; ++i)
            keyClick(Qt.Key_Tab);
        verify(button.activeFocus, "Tab reaches every entry");
        if (panel.compact)
            verifyInView(button);
        keyClick(Qt.Key_Return);
        compare(objects.state.activePage.id, "updates");
    }

    // Whoever cannot see the panel hears what can be pressed, and presses it.
    function test_everything_to_press_fits_and_has_a_name_data() {
        return test_keyboard_data();
    }
    function test_everything_to_press_fits_and_has_a_name(data) {
        objects.installLUTs("Gece", { "A.CUBE": "plain.cube" });
        objects.publishPack("a", "Gündüz", "1", 10);
        objects.installElsewhere("a");
        objects.connectHost();
        open(data.width, 640);
        for (const page of OrvexPages.all) {
            objects.state.activePage = page;
            waitForRendering(panel);
            const content = named(panel, "content");
            compare(content.Accessible.name, page.title);
            const pressable = allItems(content, item => item.visible && item.clicked !== undefined && item.keyHeld !== undefined);
            verify(pressable.length > 0);
            for (const item of pressable) {
                verify(item.Accessible.name !== "", page.id + ": " + item);
                const left = item.mapToItem(content, 0, 0).x;
                verify(left >= 16 && left + item.width <= content.width - 16, page.id + ": " + item.Accessible.name);
            }
        }
        named(panel, "navigation color").Accessible.pressAction();
        compare(objects.state.activePage.id, "color");
    }
}
