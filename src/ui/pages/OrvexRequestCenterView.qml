import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Pages

// Writes to the vendor.
OrvexScrollPage {
    id: page

    required property OrvexState state

    readonly property list<string> moduleValues: page.state.request.modules
    readonly property string module: moduleValues[modulePicker.currentIndex] ?? moduleValues[0]
    readonly property bool sendable: titleField.text.trim().length > 0 && detailArea.text.trim().length > 0 && !page.locked

    // What arrives clears the fields: nothing may be written into them that has not been sent.
    readonly property bool locked: page.state.requestSending

    function send(): void {
        if (page.sendable)
            page.state.request.send(titleField.text, detailArea.text, page.module, page.state.host);
    }

    function restoreDraft(): void {
        const draft = page.state.request.takeDraft();
        titleField.text = draft.title;
        detailArea.text = draft.detail;
        modulePicker.currentIndex = Math.max(0, page.moduleValues.indexOf(draft.module));
        titleField.forceActiveFocus();
    }

    // The fields of a new page are empty; what was not sent from the last one can be had back.
    Component.onDestruction: page.state.request.keepDraft(titleField.text, detailArea.text, page.module)

    Connections {
        target: page.state.request

        function onSent() {
            titleField.clear();
            detailArea.editor.clear();
        }
    }

    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        enabled: page.sendable
        onActivated: page.send()
    }

    OrvexSectionTitle {
        eyebrow: "USER REQUEST CLOUD"
        title: "İstek Merkezi"
        subtitle: "Final Cut taleplerini Vantrelo backend'e gönder"
    }

    OrvexNotice {
        objectName: "draft"
        accent: OrvexTheme.cyan
        actionTitle: "Taslağı geri getir"
        icon: "info.circle.fill"
        message: page.state.request.draft.title.trim().length > 0 ? page.state.request.draft.title : page.state.request.draft.detail
        title: "Gönderilmemiş bir taslağın var"
        visible: page.state.request.hasDraft && titleField.length === 0 && detailArea.text.length === 0 && !page.state.requestSending

        onClicked: page.restoreDraft()
    }

    OrvexPanel {
        padding: 18

        contentItem: ColumnLayout {
            spacing: 12

            OrvexTextField {
                id: titleField

                objectName: "title"
                Layout.fillWidth: true
                name: "Talep başlığı"
                placeholderText: "Talep başlığı"
                readOnly: page.locked
            }

            OrvexTextArea {
                id: detailArea

                objectName: "detail"
                Layout.fillWidth: true
                name: "Talep açıklaması"
                placeholderText: "Ne istediğini ve nerede işine yarayacağını yaz."
                readOnly: page.locked
            }

            RowLayout {
                spacing: 10

                OrvexText {
                    Accessible.ignored: true
                    color: OrvexTheme.muted
                    size: 10
                    text: "Modül"
                }

                OrvexPicker {
                    id: modulePicker

                    objectName: "module"
                    Layout.preferredWidth: 150
                    model: ["Final Cut", "Timeline", "Motion", "Audio", "Color", "FxPlug", "Release"]
                    name: "Modül"
                }

                Item {
                    Layout.fillWidth: true
                }
            }

            OrvexRequestDiagnostics {
                Layout.fillWidth: true
                Layout.topMargin: 4
                state: page.state
            }

            OrvexPrimaryButton {
                Layout.fillWidth: true
                Layout.topMargin: 4
                disabled: !page.sendable
                icon: "paperplane.fill"
                title: page.state.requestSending ? "Gönderiliyor" : "Talebi gönder"

                onClicked: page.send()
            }

            OrvexText {
                Layout.fillWidth: true
                color: OrvexTheme.muted
                horizontalAlignment: Text.AlignHCenter
                size: 9
                text: "Ctrl+Enter ile de gönderebilirsin."
            }
        }
    }
}
