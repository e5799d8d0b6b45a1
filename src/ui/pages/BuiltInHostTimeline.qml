pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// The built-in host's sequence over its whole width: ruler, clips, speed points and the playhead,
// which follows the pointer while it is pressed.
OrvexControl {
    id: timeline

    required property BuiltInHost host

    readonly property real duration: timeline.host.durationSeconds
    readonly property real rulerHeight: 18

    // What the toolkit tells assistive technology of a slider, by these names; in seconds.
    readonly property real value: timeline.host.playheadSeconds
    readonly property real minimumValue: 0
    readonly property real maximumValue: timeline.duration
    readonly property real stepSize: timeline.host.frameDurationSeconds

    function xOf(seconds: real): real {
        return timeline.duration > 0 ? seconds / timeline.duration * timeline.width : 0;
    }

    function seekTo(x: real): void {
        timeline.host.seek(Math.max(0, Math.min(1, x / timeline.width)) * timeline.duration);
    }

    function step(frames: int): void {
        timeline.host.seek(timeline.host.playheadSeconds + frames * timeline.host.frameDurationSeconds);
    }

    Accessible.role: Accessible.Slider
    Accessible.name: "Oynatma kafası, " + OrvexFormat.timecode(timeline.host.playheadSeconds)
    Accessible.focusable: true
    Accessible.onIncreaseAction: timeline.step(1)
    Accessible.onDecreaseAction: timeline.step(-1)
    Keys.onLeftPressed: timeline.step(-1)
    Keys.onRightPressed: timeline.step(1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            timeline.host.seek(0);
        else if (event.key === Qt.Key_End)
            timeline.host.seek(timeline.duration);
        else
            return;
        event.accepted = true;
    }

    BuiltInHostRuler {
        width: parent.width
        height: timeline.rulerHeight
        duration: timeline.duration
    }

    Item {
        id: track

        y: timeline.rulerHeight + 2
        width: parent.width
        height: parent.height - y

        Repeater {
            model: timeline.host.clips

            BuiltInHostClip {
                required property var modelData

                x: timeline.xOf(modelData.start)
                width: timeline.xOf(modelData.duration) - 2
                height: track.height
                name: modelData.name
                lut: modelData.lut
                retimeEditorOpen: timeline.host.retimeEditorOpen
                speedPercent: timeline.host.speedPercent
            }
        }

        Repeater {
            model: timeline.host.speedPoints

            Item {
                required property real modelData

                objectName: "speedPoint"
                x: Math.round(timeline.xOf(modelData))
                height: track.height
                Accessible.role: Accessible.Indicator
                Accessible.name: "Hız noktası, " + OrvexFormat.timecode(modelData)

                Rectangle {
                    width: 1
                    height: parent.height
                    color: OrvexTheme.fade(OrvexTheme.warning, 0.7)
                }

                Rectangle {
                    anchors.horizontalCenter: parent.left
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 4
                    width: 8
                    height: 8
                    rotation: 45
                    antialiasing: true
                    color: OrvexTheme.warning
                }
            }
        }
    }

    MouseArea {
        objectName: "scrubber"
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => {
            timeline.forceActiveFocus(Qt.MouseFocusReason);
            timeline.seekTo(mouse.x);
        }
        onPositionChanged: mouse => timeline.seekTo(mouse.x)
    }

    Item {
        objectName: "playhead"
        x: Math.round(timeline.xOf(timeline.host.playheadSeconds))
        height: parent.height

        Rectangle {
            x: -1
            y: 10
            width: 2
            height: parent.height - y
            color: OrvexTheme.text
        }

        Rectangle {
            x: -5
            y: 3
            width: 10
            height: 12
            radius: 3
            color: OrvexTheme.text
        }
    }

    OrvexFocusRing {
        targetRadius: 6
        shown: timeline.visualFocus
    }
}
