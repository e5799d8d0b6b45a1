import QtQuick
import QtQuick.Layouts
import Orvex

/// A value under its label. A long value is set a little smaller; one that is too long even then is
/// shown whole when pointed at.
OrvexPanel {
    id: metric

    required property string label
    required property string value
    property color accent: OrvexTheme.cyan

    Accessible.name: label + ": " + value
    Accessible.role: Accessible.StaticText
    padding: 15

    contentItem: ColumnLayout {
        spacing: 8

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            color: metric.accent
            size: 9
            text: metric.label
            tracking: 1.2
            weight: Font.Black
        }

        OrvexText {
            id: valueText

            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.preferredHeight: Math.ceil(metrics.height)
            fontSizeMode: Text.HorizontalFit
            // A timecode still fits into the narrowest column.
            minimumPixelSize: 13
            size: 18
            text: metric.value
            verticalAlignment: Text.AlignVCenter
            weight: Font.Black
        }
    }

    FontMetrics {
        id: metrics

        font.family: OrvexTheme.fontFamily
        font.pixelSize: 18
        font.weight: Font.Black
    }

    HoverHandler {
        id: hover
    }

    OrvexToolTip {
        text: metric.value
        visible: hover.hovered && valueText.truncated
    }
}
