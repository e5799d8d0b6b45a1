import QtQuick
import Orvex

/// The background that sets things apart, around one item of content.
OrvexPane {
    id: panel

    /// Outlined in blue.
    property bool glow: false

    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    background: OrvexPanelSurface {
        glow: panel.glow
    }
}
