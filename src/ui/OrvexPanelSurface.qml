import QtQuick
import Orvex

/// What a panel is drawn as.
OrvexSurface {
    /// Outlined in blue.
    property bool glow: false

    endColor: OrvexTheme.fade(OrvexTheme.panel, 0.96)
    outlineColor: glow ? OrvexTheme.borderBlue : OrvexTheme.border
    radius: OrvexTheme.panelRadius
    startColor: OrvexTheme.fade(OrvexTheme.panelStrong, 0.95)
}
