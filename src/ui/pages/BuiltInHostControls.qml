pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// The row over the built-in host's timeline: transport, names, speed and frame rate.
Item {
    id: controls

    required property BuiltInHost host

    signal playToggled

    // "24000/1001" reads "23.976 fps".
    function rateText(rate: string): string {
        const parts = rate.split("/");
        const value = Number(parts[0]) / (parts.length > 1 ? Number(parts[1]) : 1);
        return Number(value.toFixed(3)) + " fps";
    }

    function rateTexts(rates: var): var {
        return rates.map(controls.rateText);
    }

    function indexOfRate(rates: var, rate: string): int {
        return rates.indexOf(rate);
    }

    OrvexPressable {
        id: play

        objectName: "play"
        width: 38
        height: parent.height
        Accessible.name: controls.host.playing ? "Duraklat" : "Oynat"
        onClicked: controls.playToggled()

        background: Rectangle {
            radius: 9
            color: OrvexTheme.fade(OrvexTheme.text, play.pressed ? 0.16 : play.hovered ? 0.11 : 0.07)
        }

        OrvexSymbol {
            anchors.centerIn: parent
            name: controls.host.playing ? "pause.fill" : "play.fill"
            size: 18
            color: OrvexTheme.text
        }

        OrvexFocusRing {
            targetRadius: 9
            shown: play.visualFocus
        }
    }

    // Digits of one width, so that the text stands still while it counts.
    Row {
        id: timecode

        readonly property string text: OrvexFormat.timecode(controls.host.playheadSeconds)

        objectName: "timecode"
        anchors.left: play.right
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text

        Repeater {
            model: timecode.text.length

            OrvexText {
                required property int index
                readonly property string character: timecode.text.charAt(index)

                width: character === ":" || character === "." ? 4 : 8
                horizontalAlignment: Text.AlignHCenter
                text: character
                size: 12
                weight: Font.DemiBold
                Accessible.ignored: true
            }
        }
    }

    OrvexText {
        anchors.left: timecode.right
        anchors.leftMargin: 14
        anchors.right: speed.visible ? speed.left : picker.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        visible: width >= 40
        text: controls.host.sequenceName
        size: 10
        color: OrvexTheme.muted
    }

    OrvexText {
        id: speed

        objectName: "speed"
        anchors.right: picker.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: controls.host.speedPercent !== 100
        text: "Hız %" + controls.host.speedPercent
        size: 10
        weight: Font.Bold
        color: OrvexTheme.warning
    }

    OrvexPicker {
        id: picker

        objectName: "frameRate"
        anchors.right: parent.right
        width: 104
        height: parent.height
        name: "Kare hızı"
        model: controls.rateTexts(controls.host.frameRates)
        currentIndex: controls.indexOfRate(controls.host.frameRates, controls.host.frameRate)
        onActivated: index => controls.host.frameRate = controls.host.frameRates[index]
    }
}
