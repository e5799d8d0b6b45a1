pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Speed

// Speed ramps of the selected clip: presets, the live curve, and the retime commands.
OrvexScrollPage {
    id: page

    required property OrvexState state

    readonly property bool available: page.state.host.sequenceAvailable

    // Asks for a timeline command by its name.
    signal perform(action: string)

    // The drawn curve springs to the edited one where it is `springing`, otherwise it jumps there.
    function draw(springing: bool): void {
        const springs = [x1, y1, x2, y2];
        for (let i = 0; i < 4; ++i) {
            if (springing)
                springs[i].to = edited.curve[i];
            else
                springs[i].jump(edited.curve[i]);
        }
    }

    function withSpring(change: var): void {
        edited.springing = true;
        change();
        edited.springing = false;
    }

    function copyCode(): void {
        OrvexClipboard.text = edited.bezierCode;
        page.state.showToast("Eğri metni kopyalandı.", OrvexToast.Success, 3.2);
    }

    function pasteCode(): void {
        const error = edited.paste(OrvexClipboard.text);
        if (error)
            page.state.showToast(error, OrvexToast.Error, 5.0);
    }

    padding: 16

    Component.onCompleted: page.draw(false)

    SpeedCurveEditing {
        id: edited

        property bool springing: false

        onChanged: page.draw(edited.springing)
    }

    SpeedCurveSpring {
        id: x1
    }

    SpeedCurveSpring {
        id: y1
    }

    SpeedCurveSpring {
        id: x2
    }

    SpeedCurveSpring {
        id: y2
    }

    OrvexSectionTitle {
        eyebrow: "ORVEX SPEED LAB"
        subtitle: "Seçili klipte gerçek Final Cut retime komutları ve canlı cubic-bezier editörü"
        title: "Speed Ramp & Curves"
    }

    OrvexAdaptiveGrid {
        minimumWidth: 140
        spacing: 9

        Repeater {
            model: SpeedCurvePresets.all

            SpeedPresetCard {
                required property speedCurvePreset modelData

                name: modelData.name
                objectName: "preset-" + modelData.id
                points: modelData.curve
                selected: modelData.id === edited.selectedPreset

                onClicked: page.withSpring(() => edited.selectPreset(modelData.id))
            }
        }
    }

    OrvexPanel {
        padding: 15

        contentItem: ColumnLayout {
            spacing: 12

            RowLayout {
                spacing: 4

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 3

                    OrvexText {
                        Layout.fillWidth: true
                        size: 9
                        text: "LIVE CURVE"
                        tracking: 1.4
                        weight: Font.Black
                    }

                    OrvexText {
                        Layout.fillWidth: true
                        color: OrvexTheme.muted
                        size: 9
                        text: "Kontrol noktalarını sürükle"
                    }
                }

                SpeedIconButton {
                    enabled: edited.canUndo
                    icon: "arrow.uturn.backward"
                    objectName: "undo"
                    title: "Geri al"

                    onClicked: page.withSpring(() => edited.undo())
                }

                SpeedIconButton {
                    enabled: edited.canRedo
                    icon: "arrow.uturn.forward"
                    objectName: "redo"
                    title: "Yinele"

                    onClicked: page.withSpring(() => edited.redo())
                }

                OrvexTextButton {
                    Layout.leftMargin: 6
                    objectName: "reset"
                    title: "Sıfırla"

                    onClicked: edited.reset()
                }
            }

            SpeedCurveEditor {
                Layout.fillWidth: true
                Layout.maximumHeight: 310
                Layout.minimumHeight: 190
                Layout.preferredHeight: 260
                curve: [x1.value, y1.value, x2.value, y2.value]
                editing: edited
                objectName: "editor"
            }

            SpeedProfileView {
                Layout.fillWidth: true
                curve: [x1.value, y1.value, x2.value, y2.value]
            }

            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: codeRow.implicitHeight + 8
                color: Qt.rgba(1, 1, 1, 0.035)
                radius: 9

                RowLayout {
                    id: codeRow

                    anchors.fill: parent
                    anchors.leftMargin: 10
                    anchors.rightMargin: 5
                    spacing: 2

                    OrvexText {
                        Layout.fillWidth: true
                        color: OrvexTheme.cyan
                        objectName: "code"
                        size: 10
                        text: edited.bezierCode
                        weight: Font.DemiBold
                    }

                    SpeedIconButton {
                        icon: "doc.on.doc"
                        objectName: "copy"
                        title: "Eğri metnini kopyala"

                        onClicked: page.copyCode()
                    }

                    SpeedIconButton {
                        icon: "doc.on.clipboard"
                        objectName: "paste"
                        title: "Eğri metnini yapıştır"

                        onClicked: page.pasteCode()
                    }
                }
            }
        }
    }

    OrvexAdaptiveGrid {
        minimumWidth: 190
        spacing: 10

        OrvexToolCard {
            enabled: page.available
            icon: "slider.horizontal.3"
            objectName: "toggle-retime"
            subtitle: "Seçili klibin hız editörünü aç/kapat"
            title: "Retime Editor"

            onClicked: page.perform("toggle-retime")
        }

        OrvexToolCard {
            enabled: page.available
            icon: "point.topleft.down.curvedto.point.bottomright.up"
            objectName: "blade-speed"
            subtitle: "Playhead konumunda ramp geçişi oluştur"
            title: "Speed Point"

            onClicked: page.perform("blade-speed")
        }

        OrvexToolCard {
            enabled: page.available
            icon: "gauge.with.dots.needle.50percent"
            objectName: "normal-speed"
            subtitle: "Seçili klibi tekrar %100 hıza getir"
            title: "Normal Speed"

            onClicked: page.perform("normal-speed")
        }
    }

    OrvexPrimaryButton {
        disabled: !page.available
        icon: "bolt.fill"
        objectName: "apply"
        title: "SPEED RAMP NOKTASI UYGULA"

        onClicked: page.perform("blade-speed")
    }

    Shortcut {
        sequences: ["Ctrl+Z"]

        onActivated: page.withSpring(() => edited.undo())
    }

    Shortcut {
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]

        onActivated: page.withSpring(() => edited.redo())
    }

    Shortcut {
        sequences: ["Ctrl+C"]

        onActivated: page.copyCode()
    }

    Shortcut {
        sequences: ["Ctrl+V"]

        onActivated: page.pasteCode()
    }
}
