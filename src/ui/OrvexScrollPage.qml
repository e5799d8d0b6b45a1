import QtQuick
import QtQuick.Templates as T
import Orvex

/// A page that scrolls when it is higher than the room it has. Its children stand in one column as
/// wide as the page, each as high as its implicit height. Whatever gets the keyboard's focus is
/// brought into view.
Flickable {
    id: page

    default property alias content: column.data
    property real padding: OrvexTheme.pagePadding
    property alias spacing: column.spacing

    readonly property real lineStep: 48
    readonly property var focusItem: Window.activeFocusItem

    function scrollTo(y: real) {
        contentY = Math.round(Math.max(0, Math.min(y, contentHeight - height)));
    }

    function scrollFor(key: int): bool {
        switch (key) {
        case Qt.Key_Up:
            scrollTo(contentY - lineStep);
            return true;
        case Qt.Key_Down:
            scrollTo(contentY + lineStep);
            return true;
        case Qt.Key_PageUp:
            scrollTo(contentY - height * 0.9);
            return true;
        case Qt.Key_PageDown:
            scrollTo(contentY + height * 0.9);
            return true;
        case Qt.Key_Home:
            scrollTo(0);
            return true;
        case Qt.Key_End:
            scrollTo(contentHeight);
            return true;
        default:
            return false;
        }
    }

    // `item`, or the whole card that it is on; null where it is not on the page.
    function seenWith(item: Item): Item {
        let seen = item;
        for (let each = item; each; each = each.parent) {
            if (each === column)
                return seen;
            if (each.parent instanceof OrvexCardView)
                seen = each;
        }
        return null;
    }

    /// Scrolls as little as shows all of `item`, with some air around it.
    function bringIntoView(item: Item) {
        const air = 12;
        const top = item.mapToItem(contentItem, 0, 0).y - air;
        const bottom = top + item.height + 2 * air;
        if (top < contentY)
            scrollTo(top);
        else if (bottom > contentY + height)
            scrollTo(Math.min(top, bottom - height));
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: column.implicitHeight + 2 * padding
    contentWidth: width

    T.ScrollBar.vertical: OrvexScrollBar {
    }

    Keys.onPressed: event => event.accepted = page.scrollFor(event.key)
    onFocusItemChanged: {
        // A press with the mouse must not move what is being pressed. Not every item tells.
        const seen = seenWith(focusItem);
        if (seen && focusItem.visualFocus !== false)
            bringIntoView(seen);
    }

    // A grid of a single column.
    OrvexAdaptiveGrid {
        id: column

        minimumWidth: page.width
        spacing: OrvexTheme.pageSpacing
        width: page.width - 2 * page.padding
        x: page.padding
        y: page.padding
    }
}
