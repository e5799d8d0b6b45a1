import QtQuick

/// Tells once, when what it belongs to has been on screen for the first time: whatever is started
/// then holds up no first frame, and nothing is started for a page that was never seen.
Item {
    id: appearance

    property bool pending: true

    signal appeared

    Connections {
        enabled: appearance.pending
        target: appearance.Window.window

        function onFrameSwapped() {
            appearance.pending = false;
            appearance.appeared();
        }
    }
}
