import QtQuick
import Orvex
import Orvex.Pages

// The frame of the compact layout: a header and the page strip above the page.
Item {
    id: frame

    required property OrvexState state
    // Whether the keys of the pages are taken.
    required property bool armed
    required property string focusedPage

    signal pageChosen(id: string)
    signal focusMoved(id: string)

    OrvexCompactTopbar {
        objectName: "compactTopbar"
        width: frame.width
        height: OrvexPanelMetrics.compactTopbarHeight
        state: frame.state
    }

    Rectangle {
        y: OrvexPanelMetrics.compactTopbarHeight
        width: frame.width
        height: 1
        color: OrvexTheme.border
    }

    OrvexCompactNavigation {
        objectName: "compactNavigation"
        y: OrvexPanelMetrics.compactTopbarHeight + 1
        width: frame.width
        height: OrvexPanelMetrics.compactNavigationHeight
        state: frame.state
        armed: frame.armed
        focusedPage: frame.focusedPage
        onPageChosen: id => frame.pageChosen(id)
        onFocusMoved: id => frame.focusMoved(id)
    }
}
