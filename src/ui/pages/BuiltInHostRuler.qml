pragma ComponentBehavior: Bound

import QtQuick
import Orvex

// Ticks with their times. Their distance is the shortest round one that leaves the texts room.
Item {
    id: ruler

    // Seconds.
    required property real duration

    readonly property real textRoom: 76
    readonly property real majorSeconds: {
        const steps = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 1800, 3600];
        for (const step of steps)
            if (step * ruler.width >= ruler.textRoom * ruler.duration)
                return step;
        return ruler.duration;
    }
    readonly property real minorSeconds: majorSeconds / 5

    Accessible.ignored: true

    Repeater {
        model: ruler.duration > 0 && ruler.width > 0 ? Math.floor(ruler.duration / ruler.minorSeconds + 1e-6) + 1 : 0

        Item {
            id: tick

            required property int index
            readonly property bool major: index % 5 === 0
            readonly property real seconds: index * ruler.minorSeconds

            x: Math.round(seconds / ruler.duration * (ruler.width - 1))
            height: ruler.height

            Rectangle {
                width: 1
                height: tick.major ? 8 : 4
                anchors.bottom: parent.bottom
                color: OrvexTheme.fade(OrvexTheme.text, tick.major ? 0.34 : 0.16)
            }

            OrvexText {
                Accessible.ignored: true
                x: 8
                y: 1
                // The last text would reach beyond the end.
                visible: tick.major && tick.x + x + width <= ruler.width
                text: OrvexFormat.timecode(tick.seconds).slice(0, -4)
                size: 8
                color: OrvexTheme.muted
            }
        }
    }
}
