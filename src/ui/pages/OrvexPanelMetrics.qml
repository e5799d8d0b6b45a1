pragma Singleton

import QtQuick

// The measures of the panel's frame that more than one of its parts needs, in points.
QtObject {
    // From this width on the panel has its wide layout.
    readonly property real wideWidth: 980
    readonly property real sidebarWidth: 194
    readonly property real topbarHeight: 64
    readonly property real compactTopbarHeight: 52
    readonly property real compactNavigationHeight: 46
    readonly property real compactContentTopPadding: 24
    // Everything above the page in the compact layout, its divider included.
    readonly property real compactHeaderHeight: compactTopbarHeight + 1 + compactNavigationHeight
}
