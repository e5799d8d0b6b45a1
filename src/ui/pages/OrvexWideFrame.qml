import QtQuick
import Orvex
import Orvex.Pages

// The frame of the wide layout: the sidebar at the leading edge, the header over the page.
Item {
    id: frame

    required property OrvexState state
    // Whether the keys of the pages are taken.
    required property bool armed

    signal pageChosen(id: string)

    OrvexSidebar {
        objectName: "sidebar"
        width: OrvexPanelMetrics.sidebarWidth
        height: frame.height
        state: frame.state
        armed: frame.armed
        onPageChosen: id => frame.pageChosen(id)
    }

    Rectangle {
        x: OrvexPanelMetrics.sidebarWidth
        width: 1
        height: frame.height
        color: OrvexTheme.border
    }

    OrvexTopbar {
        objectName: "topbar"
        x: OrvexPanelMetrics.sidebarWidth + 1
        width: frame.width - x
        height: OrvexPanelMetrics.topbarHeight
        state: frame.state
    }

    Rectangle {
        x: OrvexPanelMetrics.sidebarWidth + 1
        y: OrvexPanelMetrics.topbarHeight
        width: frame.width - x
        height: 1
        color: OrvexTheme.border
    }
}
