pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex

// What goes along with a request beside what the user wrote.
ColumnLayout {
    id: diagnostics

    required property OrvexState state

    readonly property hostSnapshot host: diagnostics.state.host
    readonly property var rows: [
        { label: "Uygulama", value: diagnostics.host.hostName + " " + diagnostics.host.hostVersion },
        { label: "Eklenti sürümü", value: diagnostics.state.panelVersion },
        { label: "Platform", value: "macOS" },
        { label: "Çalışma biçimi", value: "Workflow Extension" },
        { label: "Sequence", value: diagnostics.host.sequenceAvailable ? diagnostics.host.sequenceName : "" }
    ]

    spacing: 6

    OrvexText {
        color: OrvexTheme.cyan
        size: 9
        text: "TALEPLE BİRLİKTE GİDEN BİLGİLER"
        tracking: 1.2
        weight: Font.Black
    }

    Repeater {
        model: diagnostics.rows

        delegate: RowLayout {
            id: row

            required property var modelData

            Accessible.name: row.modelData.label + ": " + value.text
            Accessible.role: Accessible.StaticText
            spacing: 8

            OrvexText {
                Accessible.ignored: true
                Layout.preferredWidth: 96
                color: OrvexTheme.muted
                size: 10
                text: row.modelData.label
            }

            OrvexText {
                id: value

                Accessible.ignored: true
                Layout.fillWidth: true
                size: 10
                text: row.modelData.value.length > 0 ? row.modelData.value : "Açık sequence yok"
            }
        }
    }
}
