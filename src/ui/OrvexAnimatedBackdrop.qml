import QtQuick
import Orvex

/// Two glows that drift slowly behind the pages.
Item {
    id: backdrop

    // Seconds since the beginning of 2001; the places of the glows depend on nothing else.
    property real time: 0

    readonly property real w: Math.max(1, width)
    readonly property real h: Math.max(1, height)

    function now(): real {
        return Date.now() / 1000 - 978307200;
    }

    Accessible.ignored: true
    clip: true

    Timer {
        interval: 33
        repeat: true
        running: OrvexMotion.animated && backdrop.visible
        triggeredOnStart: true

        onTriggered: backdrop.time = backdrop.now()
    }

    Rectangle {
        anchors.fill: parent
        color: OrvexTheme.background
    }

    // What a glow may show is the backdrop, moved by as much as the glow drifts, and a point more for
    // its rounding.
    OrvexDisc {
        blurRadius: 80
        color: OrvexTheme.fade(OrvexTheme.blue, 0.1)
        diameter: backdrop.w * 0.7
        seen: Qt.rect(width / 2 - 0.83 * backdrop.w - 1, height / 2 - 0.31 * backdrop.h - 1, 1.22 * backdrop.w + 2, 1.18 * backdrop.h + 2)
        x: Math.round(backdrop.w * (0.72 + 0.11 * Math.sin(0.22 * backdrop.time)) - width / 2)
        y: Math.round(backdrop.h * (0.22 + 0.09 * Math.cos(0.19 * backdrop.time)) - height / 2)
    }

    OrvexDisc {
        blurRadius: 95
        color: OrvexTheme.fade(OrvexTheme.cyan, 0.055)
        diameter: backdrop.w * 0.52
        seen: Qt.rect(width / 2 - 0.4 * backdrop.w - 1, height / 2 - 0.85 * backdrop.h - 1, 1.16 * backdrop.w + 2, 1.14 * backdrop.h + 2)
        x: Math.round(backdrop.w * (0.32 + 0.08 * Math.cos(0.17 * backdrop.time)) - width / 2)
        y: Math.round(backdrop.h * (0.78 + 0.07 * Math.sin(0.21 * backdrop.time)) - height / 2)
    }
}
