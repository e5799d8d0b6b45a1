pragma Singleton

import QtQuick

/// What everything on the panel looks like. Sizes are in points, durations in milliseconds.
QtObject {
    readonly property color background: Qt.rgba(0.012, 0.017, 0.023, 1)
    readonly property color sidebar: Qt.rgba(0.006, 0.009, 0.013, 1)
    readonly property color panel: Qt.rgba(0.028, 0.041, 0.057, 1)
    readonly property color panelStrong: Qt.rgba(0.038, 0.061, 0.086, 1)
    readonly property color blue: Qt.rgba(0.067, 0.549, 1, 1)
    readonly property color cyan: Qt.rgba(0.082, 0.784, 1, 1)
    readonly property color success: Qt.rgba(0.318, 0.906, 0.667, 1)
    readonly property color warning: Qt.rgba(1, 0.702, 0.302, 1)
    readonly property color danger: Qt.rgba(1, 0.314, 0.404, 1)
    readonly property color text: Qt.rgba(1, 1, 1, 0.96)
    readonly property color muted: Qt.rgba(1, 1, 1, 0.46)
    readonly property color border: Qt.rgba(1, 1, 1, 0.075)
    readonly property color borderBlue: fade(blue, 0.26)

    readonly property string fontFamily: "Inter"
    readonly property string iconFamily: "Material Icons"

    readonly property int panelRadius: 18
    readonly property int tileRadius: 12
    readonly property int buttonRadius: 11
    readonly property int chipRadius: 6

    readonly property int pagePadding: 20
    readonly property int pageSpacing: 18
    readonly property int gridSpacing: 10

    readonly property int quick: 120
    readonly property int easing: 240
    readonly property int toolTipDelay: 600

    readonly property real disabledOpacity: 0.42
    readonly property real pressedOpacity: 0.72

    /// `color` at `opacity`.
    function fade(color: color, opacity: real): color {
        return Qt.rgba(color.r, color.g, color.b, opacity);
    }

    /// `color` with a `part` of `other` in it, from 0 to 1.
    function mix(color: color, other: color, part: real): color {
        return Qt.rgba(color.r + (other.r - color.r) * part, color.g + (other.g - color.g) * part, color.b + (other.b - color.b) * part, color.a + (other.a - color.a) * part);
    }
}
