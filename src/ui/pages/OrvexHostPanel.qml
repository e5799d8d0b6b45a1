import QtQuick
import QtQuick.Layouts
import Orvex

// The host and its sequence at a glance.
OrvexPanel {
    id: panel

    required property OrvexState state

    readonly property hostSnapshot host: panel.state.host
    readonly property string range: OrvexFormat.timecode(panel.host.sequenceStartSeconds) + " – " + OrvexFormat.timecode(panel.host.sequenceStartSeconds + panel.host.sequenceDurationSeconds)

    padding: 18

    contentItem: ColumnLayout {
        spacing: 0

        OrvexText {
            Layout.fillWidth: true
            color: panel.host.connected ? OrvexTheme.success : OrvexTheme.warning
            size: 9
            text: panel.host.connected ? "FINAL CUT PRO BAĞLANTISI HAZIR" : "HOST BEKLENİYOR"
            tracking: 1.3
            weight: Font.Black
        }

        OrvexText {
            Layout.fillWidth: true
            Layout.topMargin: 6
            size: 19
            text: panel.host.connected ? panel.host.hostName + " " + panel.host.hostVersion : "Workflow Extension"
            weight: Font.Black
            wrapMode: Text.Wrap
        }

        OrvexText {
            Layout.fillWidth: true
            Layout.topMargin: 4
            color: OrvexTheme.muted
            size: 10
            text: panel.host.sequenceAvailable ? "Range " + panel.range + " • Playhead " + OrvexFormat.timecode(panel.host.playheadSeconds) : "Timeline açıldığında canlı range bilgisi görünür."
            wrapMode: Text.Wrap
        }

        OrvexAdaptiveGrid {
            Layout.fillWidth: true
            Layout.topMargin: 14
            maximumColumns: 3
            minimumWidth: 120
            spacing: OrvexTheme.gridSpacing

            OrvexMetric {
                label: "Sequence"
                value: panel.host.sequenceName
            }

            OrvexMetric {
                label: "FPS"
                value: OrvexFormat.finiteRate(panel.host.fps)
            }

            OrvexMetric {
                label: "Orvex"
                value: panel.state.panelVersion
            }
        }
    }
}
