import QtQuick
import QtQuick.Templates as T
import Orvex
import Orvex.Pages

// Presses the entry of a page by its key, unless a popup is open. A file of its own, since the
// toolkit's templates, which know of popups, are read when the frame around the page has been seen.
T.Action {
    required property OrvexNavigationButton button

    shortcut: "Ctrl+" + (OrvexPages.indexOf(button.page) + 1)
    // As a press of the mouse does: the page that had the focus goes.
    onTriggered: {
        button.forceActiveFocus(Qt.ShortcutFocusReason);
        button.clicked();
    }
}
