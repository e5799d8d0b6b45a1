pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Orvex

// Asks for a folder. What is chosen is the folder that the path field names, or the one that is
// being read to be named there. Its folders are listed below: nothing in the list is ever selected,
// it only leads on. Opened once.
OrvexDialog {
    id: dialog

    required property FolderBrowser browser
    // The label of the button that chooses.
    required property string prompt
    // Whether a ring shows where in the list the keyboard is.
    required property bool keyed

    // When it has closed: whether the browser's folder was chosen.
    property bool accepted: false
    // To be accepted once what is being read is shown.
    property bool choosing: false
    property string refusal

    function goUp(): void {
        dialog.choosing = false;
        dialog.browser.leave();
    }

    function goInto(row: int): void {
        dialog.choosing = false;
        dialog.browser.enter(row);
    }

    // Where the path shows what is no text, it cannot be read back; unchanged, it leads nowhere.
    function goToWritten(): void {
        dialog.choosing = false;
        if (field.text !== dialog.browser.path)
            dialog.browser.go(field.text);
        else
            list.forceActiveFocus(Qt.TabFocusReason);
    }

    function choose(): void {
        dialog.choosing = true;
        if (field.text !== dialog.browser.path)
            dialog.browser.go(field.text);
        dialog.settle();
    }

    function settle(): void {
        if (!dialog.choosing || dialog.browser.reading)
            return;
        dialog.accepted = true;
        dialog.close();
    }

    closePolicy: T.Popup.CloseOnEscape
    height: Math.min(520, (parent ? parent.height : 520) - 16)
    maximumWidth: 520

    Connections {
        function onReadingChanged(): void {
            slow.told = false;
            dialog.settle();
        }

        function onRefused(reason: string): void {
            dialog.choosing = false;
            dialog.refusal = reason;
        }

        function onShown(): void {
            const followed = list.activeFocus || field.activeFocus;
            dialog.refusal = "";
            field.text = dialog.browser.path;
            list.model = dialog.browser.names;
            list.currentIndex = dialog.browser.row;
            list.positionViewAtIndex(list.currentIndex, ListView.Center);
            if (followed)
                list.forceActiveFocus(Qt.OtherFocusReason);
        }

        target: dialog.browser
    }

    Shortcut {
        sequence: "Ctrl+L"

        onActivated: {
            field.forceActiveFocus(Qt.ShortcutFocusReason);
            field.selectAll();
        }
    }

    Shortcut {
        enabled: chooseButton.enabled
        sequences: ["Ctrl+Return", "Ctrl+Enter"]

        onActivated: dialog.choose()
    }

    // A folder on a disk is there before it runs out.
    Timer {
        id: slow

        property bool told: false

        interval: 500
        running: dialog.browser.reading

        onTriggered: slow.told = true
    }

    // The second click of who clicks twice falls on a row that has not been seen yet.
    Timer {
        id: clickedTwice

        interval: Application.styleHints.mouseDoubleClickInterval
    }

    RowLayout {
        Layout.fillHeight: false
        spacing: 8

        OrvexTextField {
            id: field

            Layout.fillWidth: true
            name: "Klasörün yolu"
            objectName: "path"

            // The end says more than the beginning.
            onTextChanged: if (!field.activeFocus)
                field.cursorPosition = field.length
            Keys.onPressed: event => {
                if (event.key !== Qt.Key_Return && event.key !== Qt.Key_Enter)
                    return;
                event.accepted = true;
                dialog.keyed = true;
                dialog.goToWritten();
            }
        }

        OrvexButton {
            Layout.fillHeight: true
            enabled: dialog.browser.path !== "/"
            icon: "arrow.up"
            name: "Üst klasör"
            objectName: "up"

            onClicked: dialog.goUp()
        }
    }

    OrvexText {
        Accessible.role: Accessible.AlertMessage
        Layout.fillWidth: true
        color: OrvexTheme.warning
        maximumLineCount: 3
        objectName: "refusal"
        size: 10
        text: dialog.refusal
        visible: text.length > 0
        wrapMode: Text.Wrap
    }

    OrvexFieldGround {
        Layout.fillHeight: true
        Layout.fillWidth: true
        focused: list.activeFocus
        hovered: false

        ListView {
            id: list

            // To the next name that begins with what was typed.
            function jump(text: string): void {
                const names = dialog.browser.names;
                // Either way, as Turkish has two letters where others have one.
                const begins = name => name.toLowerCase().startsWith(text.toLowerCase()) || name.toUpperCase().startsWith(text.toUpperCase());
                for (let step = 1; step <= names.length; ++step) {
                    const index = (list.currentIndex + step) % names.length;
                    if (begins(names[index])) {
                        list.currentIndex = index;
                        return;
                    }
                }
            }

            function go(index: int): void {
                list.currentIndex = Math.max(0, Math.min(index, list.count - 1));
            }

            readonly property int pageStep: Math.max(1, Math.floor(list.height / 30) - 1)

            Accessible.name: "Alt klasörler"
            Accessible.role: Accessible.List
            activeFocusOnTab: true
            anchors.fill: parent
            anchors.margins: 5
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            focus: true
            highlightMoveDuration: 0
            objectName: "folders"
            opacity: slow.told ? 0.2 : 1
            reuseItems: true

            T.ScrollBar.vertical: OrvexScrollBar {
            }
            delegate: OrvexPressable {
                id: row

                required property int index
                required property string modelData

                Accessible.name: row.modelData
                Accessible.role: Accessible.ListItem
                // The list is what Tab leads to; it leads on to its current row.
                activeFocusOnTab: false
                height: 30
                leftPadding: 8
                rightPadding: 14
                width: list.width

                background: Rectangle {
                    border.color: OrvexTheme.cyan
                    border.width: row.activeFocus && (dialog.keyed || row.visualFocus) ? 2 : 0
                    color: OrvexTheme.fade(OrvexTheme.blue, row.pressed ? 0.3 : row.hovered ? 0.18 : 0)
                    radius: 6
                }
                contentItem: RowLayout {
                    spacing: 8

                    OrvexSymbol {
                        color: OrvexTheme.cyan
                        name: "folder"
                        size: 14
                    }

                    OrvexText {
                        id: label

                        Accessible.ignored: true
                        Layout.fillWidth: true
                        elide: Text.ElideMiddle
                        text: row.modelData
                    }
                }

                onClicked: {
                    if (!dialog.keyed && clickedTwice.running)
                        return;
                    if (!dialog.keyed)
                        clickedTwice.restart();
                    dialog.goInto(row.index);
                }
                onPressedChanged: if (row.pressed) {
                    dialog.keyed = row.keyHeld;
                    list.currentIndex = row.index;
                }

                OrvexToolTip {
                    text: row.modelData
                    visible: row.hovered && label.truncated
                }
            }

            Keys.onPressed: event => {
                if (event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))
                    return;
                dialog.keyed = true;
                const moves = {
                    // Not from a row to its list.
                    [Qt.Key_Backtab]: () => list.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason),
                    [Qt.Key_Left]: () => dialog.goUp(),
                    [Qt.Key_Backspace]: () => dialog.goUp(),
                    [Qt.Key_Right]: () => dialog.goInto(list.currentIndex),
                    [Qt.Key_Home]: () => list.go(0),
                    [Qt.Key_End]: () => list.go(list.count - 1),
                    [Qt.Key_PageUp]: () => list.go(list.currentIndex - list.pageStep),
                    [Qt.Key_PageDown]: () => list.go(list.currentIndex + list.pageStep)
                };
                const move = moves[event.key] ?? (event.text > " " ? () => list.jump(event.text) : null);
                event.accepted = move !== null;
                if (move)
                    move();
            }
        }

        OrvexText {
            anchors.centerIn: parent
            color: OrvexTheme.muted
            horizontalAlignment: Text.AlignHCenter
            objectName: "nothing"
            size: 10
            text: slow.told ? "Okunuyor…" : dialog.browser.unreadable || "Alt klasör yok."
            visible: slow.told || list.count === 0 && dialog.browser.path.length > 0
            width: parent.width - 28
            wrapMode: Text.Wrap
        }
    }

    RowLayout {
        Layout.alignment: Qt.AlignRight
        Layout.fillHeight: false
        Layout.fillWidth: false
        spacing: 8

        OrvexButton {
            Layout.fillHeight: true
            objectName: "cancel"
            title: "İptal"

            onClicked: dialog.close()
        }

        OrvexPrimaryButton {
            id: chooseButton

            Layout.preferredWidth: 110
            disabled: dialog.browser.path.length === 0
            icon: "checkmark.circle.fill"
            objectName: "choose"
            title: dialog.prompt

            onClicked: dialog.choose()
        }
    }
}
