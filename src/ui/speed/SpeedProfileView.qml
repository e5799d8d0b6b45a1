import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Speed

// What the ramp does to the clip: its speed over time, and the extremes in words.
ColumnLayout {
    id: view

    required property list<real> curve

    Accessible.name: "Ortaya çıkan hız: en düşük " + profile.minimumText + ", en yüksek " + profile.maximumText
    Accessible.role: Accessible.Graphic
    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        spacing: 10

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            color: OrvexTheme.muted
            size: 9
            text: "Ortaya çıkan hız"
        }

        Repeater {
            model: [["En düşük", profile.minimumText], ["En yüksek", profile.maximumText]]

            Row {
                required property var modelData

                spacing: 4

                OrvexText {
                    Accessible.ignored: true
                    color: OrvexTheme.muted
                    size: 9
                    text: parent.modelData[0]
                }

                OrvexText {
                    Accessible.ignored: true
                    size: 9
                    text: parent.modelData[1]
                    weight: Font.Black
                }
            }
        }
    }

    SpeedProfile {
        id: profile

        Layout.fillWidth: true
        Layout.preferredHeight: 64
        color: OrvexTheme.cyan
        curve: view.curve
        objectName: "profile"
    }
}
