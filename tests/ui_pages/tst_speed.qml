import QtQuick
import Orvex

PanelCase {
    id: testCase

    name: "SpeedLab"

    property Item editor: null

    function openSpeed() {
        objects.connectHost();
        open(1040, 1300, "speed");
        editor = named(panel, "editor");
    }

    function choose(preset) {
        mouseClick(named(panel, "preset-" + preset));
    }

    function code() {
        return named(panel, "code").text;
    }

    function selected() {
        return allItems(panel, item => item.selected === true && item.points !== undefined).map(item => item.name).join();
    }

    // Presses the handle, where it can be seen, and drags it to (x, y) of the editor, in parts of its
    // size.
    function drag(index, x, y) {
        const handle = named(editor, "handle" + index);
        const middle = handle.mapToItem(editor, handle.width / 2, handle.height / 2);
        const from = editor.mapToItem(panel, Math.max(3, Math.min(middle.x, editor.width - 3)), Math.max(3, Math.min(middle.y, editor.height - 3)));
        const to = editor.mapToItem(panel, editor.width * x, editor.height * y);
        mousePress(panel, from.x, from.y);
        mouseMove(panel, (from.x + to.x) / 2, (from.y + to.y) / 2);
        mouseMove(panel, to.x, to.y);
        mouseRelease(panel, to.x, to.y);
    }

    function test_presets_reset_and_leaving() {
        openSpeed();
        const smooth = "cubic-bezier(0.20, 0.20, 0.80, 0.80)";
        compare(named(editor, "handle0").x + 9, editor.width * 0.2);
        fuzzyCompare(named(editor, "handle0").y + 9, editor.height * 0.8, 0.001);
        compare([code(), selected()], [smooth, "Smooth"]);
        const codes = {
            "Fast Out": "cubic-bezier(0.10, 0.72, 0.28, 1.00)",
            "Fast In": "cubic-bezier(0.72, 0.00, 0.90, 0.28)",
            "Cinematic": "cubic-bezier(0.16, 1.00, 0.30, 1.00)",
            "Linear": "cubic-bezier(0.00, 0.00, 1.00, 1.00)",
            "Luxury": "cubic-bezier(0.65, 0.00, 0.18, 1.00)"
        };
        for (const name in codes) {
            choose(name.toLowerCase().replace(" ", "-"));
            compare([code(), selected()], [codes[name], name]);
        }
        mouseClick(named(panel, "reset"));
        compare([code(), selected()], [smooth, "Smooth"]);
        choose("luxury");
        objects.state.activePage = OrvexPages.byId("timeline");
        objects.state.activePage = OrvexPages.byId("speed");
        compare([code(), selected()], [smooth, "Smooth"]);
    }

    function test_motion_where_it_is_wanted() {
        openSpeed();
        const marker = named(editor, "marker");
        const still = marker.x;
        wait(120);
        compare(marker.x, still);
        OrvexMotion.reduced = false;
        tryVerify(() => marker.x !== still);
        choose("fast-in");
        verify(Math.abs(editor.curve[0] - 0.72) > 0.1, "it is drawn on its way there");
        tryVerify(() => editor.curve[0] === 0.72 && editor.curve[3] === 0.28);
    }

    function test_dragging_pins_each_coordinate() {
        openSpeed();
        const drags = [[0, 0.5, 0.25, "0.50, 0.75, 1.00, 1.00"], [0, 1.04, -0.2, "1.00, 1.00, 1.00, 1.00"], [1, 0.75, 1, "0.00, 0.00, 0.75, 0.00"]];
        for (const [index, x, y, points] of drags) {
            choose("linear");
            drag(index, x, y);
            compare([code(), selected()], ["cubic-bezier(" + points + ")", "Linear"]);
            mouseClick(named(panel, "undo"));
            compare(code(), "cubic-bezier(0.00, 0.00, 1.00, 1.00)", "a drag is one step");
        }
    }

    // A disc is hit where it is seen, with the other one's reach upon it.
    function test_a_press_takes_the_nearer_handle() {
        openSpeed();
        for (const [index, points] of [[0, "0.50, 0.90, 0.51, 0.50"], [1, "0.50, 0.50, 0.51, 0.90"]]) {
            edited("0.50, 0.50, 0.51, 0.50");
            drag(index, 0.5 + index * 0.01, 0.1);
            compare(code(), "cubic-bezier(" + points + ")");
        }
    }

    function edited(points) {
        OrvexClipboard.text = "cubic-bezier(" + points + ")";
        mouseClick(named(panel, "paste"));
    }

    function test_keyboard() {
        openSpeed();
        named(editor, "handle0").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare(code(), "cubic-bezier(0.21, 0.30, 0.80, 0.80)");
        keyClick(Qt.Key_Tab);
        verify(named(editor, "handle1").activeFocus);
        keyClick(Qt.Key_Left, Qt.ShiftModifier);
        keyClick(Qt.Key_Down);
        compare(code(), "cubic-bezier(0.21, 0.30, 0.70, 0.79)");
    }

    function test_copy_paste_and_undo() {
        openSpeed();
        choose("cinematic");
        const cinematic = "cubic-bezier(0.16, 1.00, 0.30, 1.00)";
        mouseClick(named(panel, "copy"));
        compare([OrvexClipboard.text, objects.state.toast.kind], [cinematic, OrvexToast.Success]);
        OrvexClipboard.text = " cubic-bezier(-1, .5, 0.25, 7) ";
        mouseClick(named(panel, "paste"));
        const pasted = "cubic-bezier(0.00, 0.50, 0.25, 1.00)";
        compare([code(), selected()], [pasted, "Cinematic"]);
        OrvexClipboard.text = "cubic-bezier(0,5 1 1 1)";
        keySequence("Ctrl+V");
        compare([code(), objects.state.toast.kind], [pasted, OrvexToast.Error]);
        for (const [keys, expected] of [["Ctrl+Z", cinematic], ["Ctrl+Z", "cubic-bezier(0.20, 0.20, 0.80, 0.80)"], ["Ctrl+Shift+Z", cinematic], ["Ctrl+Shift+Z", pasted]]) {
            keySequence(keys);
            compare(code(), expected);
        }
        keySequence("Ctrl+Z");
        choose("linear");
        keySequence("Ctrl+Shift+Z");
        compare(selected(), "Linear", "a new step ends the way forward");
    }

    function test_commands() {
        openSpeed();
        const actions = ["toggle-retime", "blade-speed", "normal-speed", "blade-speed"];
        // Without a sequence the commands rest.
        for (const expected of [actions, []]) {
            objects.opened = [];
            for (const name of ["toggle-retime", "blade-speed", "normal-speed", "apply"])
                mouseClick(named(panel, name));
            compare(objects.opened, expected.map(action => "vantrelo-finalcut://timeline-action?action=" + action));
            objects.report({});
        }
    }
}
