import QtQuick
import Orvex

// One clip of the built-in host's sequence, with the band of the retime editor while that is open.
Rectangle {
    id: clip

    required property string name
    // The LUT on it, or empty.
    required property string lut
    required property bool retimeEditorOpen
    required property int speedPercent

    // Green at normal speed, warm below, cool above.
    readonly property color bandColor: clip.speedPercent === 100 ? OrvexTheme.success : clip.speedPercent < 100 ? OrvexTheme.warning : OrvexTheme.blue

    objectName: "clip"
    radius: 6
    color: OrvexTheme.fade(OrvexTheme.text, 0.075)
    border.width: 1
    border.color: OrvexTheme.fade(OrvexTheme.text, 0.1)
    Accessible.role: Accessible.Graphic
    Accessible.name: clip.name + (clip.lut.length > 0 ? ", LUT " + clip.lut : "") + (clip.retimeEditorOpen ? ", hız %" + clip.speedPercent : "")

    Rectangle {
        id: band

        objectName: "retimeBand"
        x: 1
        y: 1
        width: parent.width - 2
        height: 16
        radius: 5
        visible: clip.retimeEditorOpen
        color: OrvexTheme.fade(clip.bandColor, 0.2)

        OrvexText {
            Accessible.ignored: true
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 8)
            text: "%" + clip.speedPercent
            size: 8
            weight: Font.Bold
            color: clip.bandColor
        }
    }

    Column {
        x: 8
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: band.visible ? 8 : 0
        width: parent.width - 2 * x
        visible: width >= 16

        OrvexText {
            Accessible.ignored: true
            width: parent.width
            text: clip.name
            size: 9
            weight: Font.Medium
            color: OrvexTheme.fade(OrvexTheme.text, 0.72)
        }

        OrvexText {
            Accessible.ignored: true
            objectName: "clipLUT"
            width: parent.width
            visible: clip.lut.length > 0
            text: clip.lut
            size: 8
            color: OrvexTheme.cyan
        }
    }
}
