import QtQuick
import Orvex

/// The background that sets things apart, around one item of content.
OrvexPane {
    id: panel

    /// Outlined in blue.
    property bool glow: false

    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    background: OrvexSurface {
        endColor: OrvexTheme.fade(OrvexTheme.panel, 0.96)
        outlineColor: panel.glow ? OrvexTheme.borderBlue : OrvexTheme.border
        radius: OrvexTheme.panelRadius
        startColor: OrvexTheme.fade(OrvexTheme.panelStrong, 0.95)
    }
}
