pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Orvex

/// All that is known of one audio effect, in the middle of the item that is its parent.
T.Popup {
    id: details

    property string name
    property string manufacturer
    property string version
    property string typeName
    /// Of manufacturer, type and subtype.
    property var codes: ["", "", ""]
    property bool passesAUVal
    property bool sandboxSafe

    readonly property var rows: [["Üretici", details.manufacturer], ["Sürüm", details.version], ["Tür", details.typeName], ["Üretici kodu", details.codes[0]], ["Tür kodu", details.codes[1]], ["Alt tür kodu", details.codes[2]], ["Doğrulama", details.passesAUVal ? "Geçti" : "Geçmedi"], ["Sandbox", details.sandboxSafe ? "Güvenli" : "Güvenli değil"]]
    readonly property string asText: [details.name, ...details.rows.map(row => row[0] + ": " + row[1])].join("\n")

    signal copied

    anchors.centerIn: parent
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside
    focus: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 8
    modal: true
    padding: 18
    width: Math.min(420, (parent ? parent.width : 420) - 32)

    T.Overlay.modal: Rectangle {
        color: OrvexTheme.fade(OrvexTheme.background, 0.6)
    }

    background: Rectangle {
        border.color: OrvexTheme.borderBlue
        color: OrvexTheme.panelStrong
        radius: OrvexTheme.panelRadius
    }

    contentItem: ColumnLayout {
        Accessible.name: details.name
        Accessible.role: Accessible.Dialog
        spacing: 14

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            maximumLineCount: 3
            size: 16
            text: details.name
            weight: Font.Black
            wrapMode: Text.Wrap
        }

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
}
