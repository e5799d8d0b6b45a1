import QtQuick
import Orvex

/// Where what is typed anywhere on a page of items is searched for.
OrvexTextField {
    id: field

    /// The keyboard is to go on to the items.
    signal searched

    /// Takes what a key that is pressed on the page writes; false for one that writes nothing.
    function take(event: var): bool {
        const writes = event.text.trim().length > 0 && event.text >= " " && event.text !== "\x7f";
        if (!writes || event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
            return false;
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.insert(field.cursorPosition, event.text);
        return true;
    }

    inputMethodHints: Qt.ImhNoPredictiveText
    leftPadding: 34
    name: field.placeholderText.replace("…", "")
    objectName: "search"

    Keys.onDownPressed: field.searched()
    Keys.onEscapePressed: event => {
        event.accepted = field.length > 0;
        field.clear();
    }
    onAccepted: field.searched()

    OrvexSymbol {
        anchors.verticalCenter: parent.verticalCenter
        color: OrvexTheme.muted
        name: "magnifyingglass"
        size: 16
        x: 11
    }

    Shortcut {
        sequences: ["Ctrl+F"]

        onActivated: {
            field.forceActiveFocus(Qt.ShortcutFocusReason);
            field.selectAll();
        }
    }
}
