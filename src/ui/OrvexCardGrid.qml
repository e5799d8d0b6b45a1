import QtQuick
import Orvex

/// A grid of equally high cards on a page that scrolls as a whole. Only the cards in view and a few
/// around them are made, whatever the number of rows in the model.
///
/// Tab reaches one card, the current one; the arrow keys move on from there. A delegate lets itself
/// be reached while its index is the `currentIndex`, and makes itself current when it gets the focus.
FocusScope {
    id: grid

    required property OrvexScrollPage page
    property alias model: view.model
    property alias delegate: view.delegate
    property alias count: view.count
    property real minimumWidth: 280
    property real cardHeight: 140
    property real spacing: OrvexTheme.gridSpacing
    property int currentIndex: 0

    readonly property int columns: Math.max(1, Math.floor((width + spacing) / (minimumWidth + spacing)))
    readonly property real pitch: cardHeight + spacing
    // A cell has its spacing to the right.
    readonly property real columnPitch: Math.floor((width + spacing) / columns)
    readonly property real cardWidth: columnPitch - spacing

    function move(step: int): bool {
        const target = currentIndex + step;
        if (target < 0 || target >= count)
            return false;
        const top = grid.y + page.padding + Math.floor(target / columns) * pitch;
        if (top < page.contentY)
            page.scrollTo(top - spacing);
        else if (top + cardHeight > page.contentY + page.height)
            page.scrollTo(top + cardHeight + spacing - page.height);
        const card = view.cardAt(target);
        // A card with several things to press says which.
        if (card?.takeFocus)
            card.takeFocus();
        else
            card?.forceActiveFocus(Qt.TabFocusReason);
        return true;
    }

    /// Leads the keyboard to the first card.
    function enter() {
        currentIndex = 0;
        move(0);
    }

    implicitHeight: count > 0 ? Math.ceil(count / columns) * pitch - spacing : 0
    implicitWidth: minimumWidth
    onCountChanged: currentIndex = Math.max(0, Math.min(currentIndex, count - 1))

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Left]: -1,
            [Qt.Key_Right]: 1,
            [Qt.Key_Up]: -columns,
            [Qt.Key_Down]: columns
        };
        const step = steps[event.key];
        if (step !== undefined && move(step))
            event.accepted = true;
    }

    OrvexCardView {
        id: view

        anchors.fill: parent
        columnPitch: grid.columnPitch
        columns: grid.columns
        rowPitch: grid.pitch
        shownHeight: grid.page.height
        shownTop: grid.page.contentY - grid.page.padding - grid.y
    }
}
