pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex

/// All that is known of one audio effect.
OrvexDialog {
    id: details

    property string manufacturer
    property string version
    property string typeName
    /// Of manufacturer, type and subtype.
    property var codes: ["", "", ""]
    property bool passesAUVal
    property bool sandboxSafe

    readonly property var rows: [["Üretici", details.manufacturer], ["Sürüm", details.version], ["Tür", details.typeName], ["Üretici kodu", details.codes[0]], ["Tür kodu", details.codes[1]], ["Alt tür kodu", details.codes[2]], ["Doğrulama", details.passesAUVal ? "Geçti" : "Geçmedi"], ["Sandbox", details.sandboxSafe ? "Güvenli" : "Güvenli değil"]]
    readonly property string asText: [details.title, ...details.rows.map(row => row[0] + ": " + row[1])].join("\n")

    signal copied

    GridLayout {
        columnSpacing: 14
        columns: 2
        rowSpacing: 7

        Repeater {
            model: details.rows.length * 2

            OrvexText {
                required property int index

                readonly property bool isName: index % 2 === 0

                Layout.fillWidth: !isName
                color: isName ? OrvexTheme.muted : OrvexTheme.text
                size: 10
                text: details.rows[Math.floor(index / 2)][index % 2]
                weight: isName ? Font.Normal : Font.DemiBold
                wrapMode: isName ? Text.NoWrap : Text.Wrap
            }
        }
    }

    RowLayout {
        Layout.alignment: Qt.AlignRight
        Layout.fillWidth: false
        spacing: 8

        OrvexButton {
            Layout.fillHeight: true
            focus: true
            icon: "doc.on.doc"
            objectName: "copy"
            title: "Kopyala"

            onClicked: {
                OrvexClipboard.text = details.asText;
                details.copied();
            }
        }

        OrvexButton {
            Layout.fillHeight: true
            objectName: "close"
            title: "Kapat"

            onClicked: details.close()
        }
    }
}
