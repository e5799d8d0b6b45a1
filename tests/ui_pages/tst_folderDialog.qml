import QtQuick
import QtQuick.Templates as T

PanelCase {
    id: test

    name: "FolderDialog"

    readonly property Item overlay: T.Overlay.overlay

    function part(objectName) {
        return named(overlay, objectName);
    }
    function row(name) {
        return findItem(part("folders"), item => item.modelData === name && item.visible);
    }
    // Waits until the folder called so is shown; the names of the rows.
    function shows(name, names) {
        tryVerify(() => part("path") !== null && part("path").text.endsWith("/" + name), 5000, name);
        if (names !== undefined)
            compare(part("folders").model, names);
    }
    // Asks for a folder, beginning at one with these folders in it.
    function opened(...folders) {
        for (const folder of folders)
            objects.files.file(folder + "/file");
        objects.files.file("start/file");
        objects.chooseFolder(test, objects.files.root + "start");
        shows("start");
    }
    function answer() {
        tryVerify(() => objects.answers.length === 1);
        const path = objects.answers[0];
        objects.answers = [];
        return path.replace(objects.files.root.toString().slice(7), "");
    }

    function test_the_mouse() {
        opened("start/.gizli", "start/İz", "start/Ilık", "start/çok/derin/dip");
        shows("start", ["çok", "Ilık", "İz"]);
        // Who clicks twice enters once.
        mouseDoubleClickSequence(row("çok"));
        shows("çok", ["derin"]);
        wait(50);
        shows("çok");
        mouseClick(part("up"));
        shows("start");
        compare(part("folders").currentIndex, 0);
        mouseClick(part("choose"));
        compare(answer(), "start");
    }

    function test_the_keyboard() {
        test.forceActiveFocus();
        opened("start/a/x", "start/b");
        for (const [key, name] of [[Qt.Key_Return, "a"], [Qt.Key_Right, "x"], [Qt.Key_Left, "a"], [Qt.Key_Backspace, "start"], [Qt.Key_B, "start"], [Qt.Key_Right, "b"]]) {
            keyClick(key);
            shows(name);
        }
        // There is nothing in it to lead on to; the way up is still there.
        verify(part("nothing").visible);
        keyClick(Qt.Key_Left);
        shows("start");
        compare(part("folders").currentIndex, 1);
        for (const objectName of ["cancel", "choose", "path", "up"]) {
            keyClick(Qt.Key_Tab);
            verify(part(objectName).activeFocus, objectName);
        }
        for (const objectName of ["folders", "up"]) {
            keyClick(objectName === "up" ? Qt.Key_Backtab : Qt.Key_Tab);
            verify(part(objectName).activeFocus, objectName);
        }
        keyClick(Qt.Key_Escape);
        compare(answer(), "nothing");
        tryVerify(() => test.activeFocus);
    }

    function test_a_written_path() {
        opened("start/a");
        for (const [path, refused] of [["yok", true], ["file", true], ["a", false], ["..", false], [" ", true], ["~", false]]) {
            const before = part("path").text;
            keyClick(Qt.Key_L, Qt.ControlModifier);
            verify(part("path").activeFocus);
            part("path").text = path;
            keyClick(Qt.Key_Return);
            tryVerify(() => part("refusal").visible === refused && (refused || part("path").text !== path), 5000, path);
            if (refused) {
                part("path").text = before;
                keyClick(Qt.Key_Return);
            }
        }
        // It counts as it stands.
        part("path").text = objects.files.root.toString().slice(7) + "start/./a/";
        mouseClick(part("choose"));
        compare(answer(), "start/a");
    }

    function test_what_is_no_text() {
        opened();
        objects.files.oddFolder();
        part("path").text = "..";
        keyClick(Qt.Key_L, Qt.ControlModifier);
        keyClick(Qt.Key_Return);
        tryVerify(() => row("\ufffd\ufffd") !== null);
        mouseClick(row("\ufffd\ufffd"));
        shows("\ufffd\ufffd", ["inner"]);
        keyClick(Qt.Key_L, Qt.ControlModifier);
        keyClick(Qt.Key_Return, Qt.ControlModifier);
        compare(answer(), "%FF%0A");
    }

    function test_ends_with_its_owner() {
        opened();
        objects.dropChooser();
        wait(50);
        compare(objects.answers.length, 0);
    }
}
