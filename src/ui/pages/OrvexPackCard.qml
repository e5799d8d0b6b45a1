pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex

// A content pack, with what can be done with it. Its fields are the roles of the list of packs.
FocusScope {
    id: card

    required property OrvexState state
    required property int index
    required property universalPack pack
    required property string name
    required property string version
    required property bool listed
    // There is a catalog to be listed in; without one nothing is known of what it holds.
    required property bool catalogKnown
    required property int fileCount
    required property real totalBytes
    required property bool installed
    required property string installedVersion
    required property bool needsUpdate
    required property bool busy
    required property bool installing
    required property bool cancelling
    required property real progressDone
    required property real progressTotal

    // The card that the keyboard reaches.
    property bool current: false

    readonly property bool upToDate: card.listed && card.installed && !card.needsUpdate && !card.busy
    readonly property string fileLine: card.fileCount + (card.listed || !card.catalogKnown ? " dosya • FINAL CUT" : " dosya • Katalogda yok")
    readonly property string progressLine: {
        if (card.cancelling)
            return "İptal ediliyor…";
        if (!card.installing)
            return "Kaldırılıyor…";
        if (card.progressTotal <= 0)
            return "Hazırlanıyor…";
        return OrvexFormat.bytes(card.progressDone) + " / " + OrvexFormat.bytes(card.progressTotal);
    }

    signal touched

    function takeFocus(): void {
        if (!card.focusFirst([install, cancel, uninstall]))
            rest.forceActiveFocus(Qt.TabFocusReason);
    }

    // Whether one of them could take it.
    function focusFirst(controls: list<OrvexButton>): bool {
        const control = Array.from(controls).find(each => each.visible && each.enabled);
        control?.forceActiveFocus(Qt.TabFocusReason);
        return control !== undefined;
    }

    Accessible.name: card.name
    Accessible.role: Accessible.Grouping
    onBusyChanged: {
        refocus.running = card.activeFocus;
        if (!card.busy)
            justDone.restart();
    }
    onActiveFocusChanged: {
        if (!card.activeFocus)
            return;
        card.touched();
        if (card.Window.activeFocusItem === card)
            card.takeFocus();
    }

    // When the buttons are what they will be: the one that had the focus can be gone. It never comes
    // to "Kaldır" by itself, where the key that began an install would remove what it brought, but
    // rests on the card.
    Timer {
        id: refocus

        interval: 0
        onTriggered: {
            if (!card.focusFirst([install, cancel]))
                rest.forceActiveFocus();
        }
    }

    Timer {
        id: justDone

        interval: 1500
    }

    HoverHandler {
        id: hover
    }

    OrvexPanel {
        anchors.fill: parent
        glow: hover.hovered || card.needsUpdate
        padding: 14

        contentItem: ColumnLayout {
            spacing: 0

            RowLayout {
                spacing: 12

                Rectangle {
                    Layout.preferredHeight: 42
                    Layout.preferredWidth: 42
                    color: OrvexTheme.fade(OrvexTheme.blue, 0.13)
                    radius: OrvexTheme.tileRadius

                    OrvexSymbol {
                        anchors.centerIn: parent
                        name: "shippingbox.fill"
                        size: 20
                    }
                }

                ColumnLayout {
                    spacing: 4

                    RowLayout {
                        spacing: 6

                        OrvexText {
                            id: nameText

                            Accessible.ignored: true
                            Layout.fillWidth: true
                            size: 12
                            text: card.name
                            weight: Font.Bold
                        }

                        OrvexBadge {
                            ink: card.needsUpdate ? OrvexTheme.warning : OrvexTheme.success
                            text: "INSTALLED"
                            visible: card.installed
                        }
                    }

                    OrvexText {
                        Layout.fillWidth: true
                        color: OrvexTheme.muted
                        size: 9
                        text: card.fileLine
                    }
                }
            }

            Item {
                id: rest

                Accessible.focusable: true
                Accessible.ignored: !rest.activeFocus
                Accessible.name: card.name
                Accessible.role: Accessible.StaticText
                Layout.fillHeight: true
                // From where the Tab key goes on, but not where it goes to.
                activeFocusOnTab: rest.activeFocus
            }

            RowLayout {
                spacing: 10

                OrvexText {
                    Layout.fillWidth: !card.installed
                    color: OrvexTheme.muted
                    size: 10
                    text: "v" + card.version + " • " + OrvexFormat.bytes(card.totalBytes)
                    visible: card.listed
                }

                OrvexText {
                    Layout.fillWidth: true
                    color: card.needsUpdate ? OrvexTheme.warning : OrvexTheme.success
                    horizontalAlignment: card.listed ? Text.AlignRight : Text.AlignLeft
                    size: 10
                    text: "Kurulu: v" + card.installedVersion
                    visible: card.installed
                }
            }

            OrvexProgressBar {
                objectName: "progress"
                Accessible.ignored: !card.busy
                Layout.fillWidth: true
                Layout.topMargin: 9
                done: card.installing ? card.progressDone : 0
                name: card.installing ? "Kuruluyor" : "Kaldırılıyor"
                opacity: card.busy ? 1 : 0
                total: card.installing && !card.cancelling ? card.progressTotal : 0
            }

            RowLayout {
                Layout.preferredHeight: 30
                Layout.topMargin: 9
                spacing: 8

                OrvexButton {
                    id: install

                    enabled: !card.busy
                    activeFocusOnTab: card.current || activeFocus
                    icon: card.busy ? "" : "icloud.and.arrow.down"
                    title: card.busy ? "İşleniyor…" : card.needsUpdate ? "Güncelle" : "Yükle"
                    visible: card.busy || card.listed && (!card.installed || card.needsUpdate)

                    onClicked: card.state.installPack(card.pack)
                }

                OrvexSymbol {
                    color: OrvexTheme.success
                    name: "checkmark.circle.fill"
                    size: 14
                    visible: card.upToDate
                }

                OrvexText {
                    color: OrvexTheme.success
                    size: 10
                    text: "Güncel"
                    visible: card.upToDate
                    weight: Font.Bold
                }

                OrvexText {
                    Accessible.ignored: !card.busy
                    Layout.fillWidth: true
                    color: OrvexTheme.muted
                    size: 9
                    text: card.busy ? card.progressLine : ""
                }

                OrvexButton {
                    id: cancel

                    enabled: !card.cancelling
                    activeFocusOnTab: card.current || activeFocus
                    ink: OrvexTheme.warning
                    name: card.name + " kurulumunu iptal et"
                    title: "İptal"
                    visible: card.busy && card.installing

                    onClicked: card.state.cancelInstall(card.pack)
                }

                OrvexButton {
                    id: uninstall

                    // Where "İptal" was a moment ago: a press for that one must not remove the pack.
                    enabled: !justDone.running
                    activeFocusOnTab: card.current || activeFocus
                    icon: "trash"
                    ink: OrvexTheme.danger
                    title: "Kaldır"
                    visible: card.installed && !card.busy

                    onClicked: card.state.uninstallPack(card.pack)
                }
            }
        }
    }

    OrvexFocusRing {
        targetRadius: OrvexTheme.panelRadius
        shown: rest.activeFocus
    }

    OrvexToolTip {
        text: card.name
        visible: hover.hovered && nameText.truncated
    }
}
