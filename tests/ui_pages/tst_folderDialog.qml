import QtQuick

PanelCase {
    id: test

    name: "FolderDialog"

    // Asks for a folder; the button that accepts the dialog's.
    function opened() {
        objects.chooseFolder(test);
        let accept = null;
        tryVerify(() => {
            accept = findItem(test.Window.window.contentItem, item => item.visible && item.text === "Seç" && item.clicked !== undefined);
            return accept !== null && accept.enabled;
        });
        return accept;
    }

    function test_answers_the_accepted_folder_and_nothing_when_cancelled() {
        mouseClick(opened());
        tryVerify(() => objects.answers.length === 1);
        verify(/^\/.*[^\/]$/.test(objects.answers[0]), objects.answers[0]);
        test.forceActiveFocus();
        opened();
        verify(!test.activeFocus);
        keyClick(Qt.Key_Escape);
        tryVerify(() => objects.answers.length === 2);
        tryVerify(() => test.activeFocus);
        compare(objects.answers[1], "nothing");
        opened();
        objects.dropChooser();
        wait(50);
        compare(objects.answers.length, 2);
    }
}
