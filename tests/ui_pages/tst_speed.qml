import QtQuick
import QtTest
import Orvex
import Orvex.Pages
import Orvex.Speed

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
        const codes = {
            "Smooth": smooth,
            "Fast Out": "cubic-bezier(0.10, 0.72, 0.28, 1.00)",
            "Fast In": "cubic-bezier(0.72, 0.00, 0.90, 0.28)",
            "Cinematic": "cubic-bezier(0.16, 1.00, 0.30, 1.00)",
            "Linear": "cubic-bezier(0.00, 0.00, 1.00, 1.00)",
            "Luxury": "cubic-bezier(0.65, 0.00, 0.18, 1.00)"
        };
        for (const name in codes) {
            if (name !== "Smooth")
                choose(name.toLowerCase().replace(" ", "-"));
            compare(code(), codes[name]);
            compare(selected(), name);
        }
        mouseClick(named(panel, "reset"));
        compare(code(), smooth);
        compare(selected(), "Smooth");
        choose("luxury");
        objects.state.activePage = OrvexPages.byId("timeline");
        objects.state.activePage = OrvexPages.byId("speed");
        compare(code(), smooth);
        compare(selected(), "Smooth");
    }

    function test_a_chosen_preset_springs_into_place() {
        openSpeed();
        OrvexMotion.reduced = false;
        choose("fast-in");
        compare(code(), "cubic-bezier(0.72, 0.00, 0.90, 0.28)");
        verify(Math.abs(editor.curve[0] - 0.72) > 0.1, "it is drawn on its way there");
        tryVerify(() => editor.curve[0] === 0.72 && editor.curve[3] === 0.28);
        mouseClick(named(panel, "reset"));
        compare(editor.curve[0], 0.2);
    }

    function test_dragging_pins_each_coordinate_data() {
        return [
            { tag: "inside", index: 0, x: 0.5, y: 0.25, code: "cubic-bezier(0.50, 0.75, 1.00, 1.00)" },
            { tag: "left and below", index: 0, x: -0.2, y: 1.2, code: "cubic-bezier(0.00, 0.00, 1.00, 1.00)" },
            { tag: "right and above", index: 0, x: 1.04, y: -0.2, code: "cubic-bezier(1.00, 1.00, 1.00, 1.00)" },
            { tag: "top edge", index: 1, x: 0.25, y: 0, code: "cubic-bezier(0.00, 0.00, 0.25, 1.00)" },
            { tag: "bottom edge", index: 1, x: 0.75, y: 1, code: "cubic-bezier(0.00, 0.00, 0.75, 0.00)" }
        ];
    }

    function test_dragging_pins_each_coordinate(row) {
        openSpeed();
        choose("linear");
        drag(row.index, row.x, row.y);
        compare(code(), row.code);
        compare(selected(), "Linear");
        mouseClick(named(panel, "undo"));
        compare(code(), "cubic-bezier(0.00, 0.00, 1.00, 1.00)", "a drag is one step");
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
        for (let i = 0; i < 4; ++i)
            keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare(code(), "cubic-bezier(0.21, 0.30, 0.70, 1.00)");
        keySequence("Ctrl+Z");
        compare(code(), "cubic-bezier(0.21, 0.30, 0.70, 0.99)");
        keySequence("Ctrl+Shift+Z");
        compare(code(), "cubic-bezier(0.21, 0.30, 0.70, 1.00)");
    }

    function test_copy_and_paste() {
        openSpeed();
        choose("cinematic");
        mouseClick(named(panel, "copy"));
        compare(OrvexClipboard.text, "cubic-bezier(0.16, 1.00, 0.30, 1.00)");
        compare(objects.state.toast.kind, OrvexToast.Success);
        OrvexClipboard.text = " cubic-bezier(-1, .5, 0.25, 7) ";
        mouseClick(named(panel, "paste"));
        compare(code(), "cubic-bezier(0.00, 0.50, 0.25, 1.00)");
        compare(selected(), "Cinematic");
        OrvexClipboard.text = "cubic-bezier(0,5 1 1 1)";
        keySequence("Ctrl+V");
        compare(code(), "cubic-bezier(0.00, 0.50, 0.25, 1.00)");
        compare(objects.state.toast.kind, OrvexToast.Error);
    }

    function test_commands() {
        openSpeed();
        const press = () => {
            objects.opened = [];
            for (const name of ["toggle-retime", "blade-speed", "normal-speed", "apply"])
                mouseClick(named(panel, name));
            return objects.opened.map(url => url.replace("vantrelo-finalcut://timeline-action?action=", ""));
        };
        compare(press(), ["toggle-retime", "blade-speed", "normal-speed", "blade-speed"]);
        // Without a sequence only the commands rest.
        objects.report({});
        compare(press(), []);
        drag(0, 0.5, 0.5);
        compare(code(), "cubic-bezier(0.50, 0.50, 0.80, 0.80)");
    }

    function test_the_marker_moves_only_while_motion_is_wanted_and_seen() {
        openSpeed();
        const marker = named(editor, "marker");
        const still = marker.x;
        wait(120);
        compare(marker.x, still);
        OrvexMotion.reduced = false;
        tryVerify(() => marker.x !== still);
        editor.visible = false;
        const hidden = marker.x;
        wait(120);
        compare(marker.x, hidden);
    }

    Component {
        id: bareEditor

        SpeedCurveEditor {
            id: bare

            readonly property alias edited: edited

            curve: edited.curve
            editing: edited

            SpeedCurveEditing {
                id: edited
            }
        }
    }

    function test_an_editor_without_size_divides_by_one() {
        const bare = createTemporaryObject(bareEditor, testCase, { width: 0, height: 0.5 });
        const handle = named(bare, "handle0");
        handle.dragTo(Qt.point(0.25, 0.25));
        compare(bare.edited.bezierCode, "cubic-bezier(0.25, 0.75, 0.80, 0.80)");
        handle.dragTo(Qt.point(40, -40));
        compare(bare.edited.bezierCode, "cubic-bezier(1.00, 1.00, 0.80, 0.80)");
    }
}
