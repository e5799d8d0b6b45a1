import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Color

/// How many LUTs there are, what the engine is doing, and the picture that all of them are shown on.
OrvexPanel {
    id: summary

    required property LUTPreviews previews
    required property int cloudCount
    required property int localCount
    required property bool applying
    /// Whose frame the picture is.
    required property string hostName

    readonly property bool wide: width >= 460

    Accessible.name: "TEK TIK MOTORU"
    Accessible.role: Accessible.Grouping
    glow: applying
    padding: 16

    contentItem: GridLayout {
        columnSpacing: 18
        columns: summary.wide ? 2 : 1
        rowSpacing: 14

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 12

            OrvexText {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: OrvexTheme.cyan
                size: 9
                text: "TEK TIK MOTORU"
                tracking: 1.4
                weight: Font.Black
            }

            RowLayout {
                spacing: 28

                ColorCount {
                    Layout.fillWidth: false
                    count: summary.cloudCount
                    label: "Vantrelo Cloud"
                    objectName: "cloudCount"
                }

                ColorCount {
                    Layout.fillWidth: true
                    count: summary.localCount
                    label: "Yerel kitaplık"
                    objectName: "localCount"
                }
            }

            OrvexText {
                Accessible.role: Accessible.AlertMessage
                Layout.fillWidth: true
                color: summary.applying ? OrvexTheme.cyan : OrvexTheme.muted
                objectName: "engineStatus"
                size: 10
                text: summary.applying ? "FİNAL CUT’A UYGULANIYOR" : "Bir LUT seç; tek tıkla seçili klibe uygulanır."
                tracking: summary.applying ? 1 : 0
                weight: summary.applying ? Font.Black : Font.Normal
                wrapMode: Text.Wrap
            }

            Item {
                Layout.fillWidth: true
                Layout.preferredHeight: bar.implicitHeight

                OrvexProgressBar {
                    id: bar

                    anchors.fill: parent
                    name: "LUT uygulanıyor"
                    visible: summary.applying
                }
            }
        }

        Item {
            Layout.fillWidth: false
            Layout.preferredHeight: width * 9 / 16
            Layout.preferredWidth: 176

            LUTPreview {
                anchors.fill: parent
                objectName: "source"
                previews: summary.previews
                radius: OrvexTheme.buttonRadius
                Accessible.name: sourceName.text
                Accessible.role: Accessible.Graphic
            }

            OrvexBadge {
                id: sourceName

                anchors.bottom: parent.bottom
                anchors.left: parent.left
                anchors.margins: 7
                fill: Qt.rgba(0, 0, 0, 0.6)
                ink: OrvexTheme.text
                text: summary.previews.fromHost ? summary.hostName + " KARESİ" : "TEST RESMİ"
            }
        }
    }
}
