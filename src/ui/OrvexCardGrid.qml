import QtQuick
import Orvex

/// A grid of equally high cards on a page that scrolls as a whole. Only the cards in view and a few
/// around them are made, whatever the number of rows in the model.
///
/// Tab reaches one card, the current one; the arrow keys, Page Up and Down, Home and End move on from
/// there. A delegate lets itself
/// be reached while its index is the `currentIndex`, and makes itself current when it gets the focus.
FocusScope {
    id: grid

    required property OrvexScrollPage page
    property alias model: view.model
    property alias delegate: view.delegate
    property alias count: view.count
    property alias currentIndex: view.currentIndex
    property alias minimumWidth: view.minimumWidth
    property alias cardHeight: view.cardHeight
    property alias spacing: view.spacing
    property alias columns: view.columns
    property alias cardWidth: view.cardWidth

    function move(step: int): bool {
        const target = currentIndex + step;
        if (target < 0 || target >= count)
            return false;
        currentIndex = target;
        const card = view.cardAt(target);
        // A card with several things to press says which.
        if (card?.takeFocus)
            card.takeFocus();
        else
            card?.forceActiveFocus(Qt.TabFocusReason);
        // A card that is given another row keeps the focus, which tells the page nothing.
        if (card)
            page.bringIntoView(card);
        return true;
    }

    /// Leads the keyboard to the first card.
    function enter() {
        currentIndex = 0;
        move(0);
    }

    // Without cards it takes no room on the page, and no spacing either.
    implicitHeight: count > 0 ? Math.ceil(count / columns) * (cardHeight + spacing) - spacing : 0
    implicitWidth: count > 0 ? minimumWidth : 0
    onCountChanged: currentIndex = Math.max(0, Math.min(currentIndex, count - 1))

    Keys.onPressed: event => {
        const last = count - 1 - currentIndex;
        const screen = Math.max(1, Math.floor(page.height / (cardHeight + spacing))) * columns;
        const steps = {
            [Qt.Key_Left]: -1,
            [Qt.Key_Right]: 1,
            [Qt.Key_Up]: -columns,
            [Qt.Key_Down]: columns,
            [Qt.Key_PageUp]: Math.max(-screen, -currentIndex),
            [Qt.Key_PageDown]: Math.min(screen, last),
            [Qt.Key_Home]: -currentIndex,
            [Qt.Key_End]: last
        };
        const step = steps[event.key];
        // At the end of the cards the page takes the key.
        if (step && move(step))
            event.accepted = true;
    }

    OrvexCardView {
        id: view

        anchors.fill: parent
        currentIndex: 0
        shownHeight: grid.page.height
        shownTop: grid.page.contentY - grid.page.padding - grid.y
        spacing: OrvexTheme.gridSpacing
    }
}
