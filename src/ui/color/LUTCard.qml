pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Color

/// A LUT as it makes the picture look, with what can be done with it. Holding the picture, or the
/// Shift key, shows the original; dragging across it moves the border between both.
FocusScope {
    id: card

    required property int index
    required property string name
    required property string caption
    required property url file
    required property url root
    required property string path

    property LUTPreviews previews: null
    /// The path of the LUT that is being applied, or nothing.
    property string activePath
    property string revealDescription
    /// The card that the keyboard reaches.
    property bool current: false

    readonly property bool applying: activePath.length > 0 && activePath === path
    readonly property alias error: picture.error
    readonly property bool usable: !picture.broken
    readonly property real padding: 10
    property bool keyHeld: false

    signal apply
    signal reveal
    signal touched

    function takeFocus(): void {
        (card.usable ? apply : reveal).forceActiveFocus(Qt.TabFocusReason);
    }

    Accessible.description: error.length > 0 ? caption + ". " + error : caption
    Accessible.name: name
    Accessible.role: Accessible.Grouping
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Shift)
            keyHeld = true;
        event.accepted = false;
    }
    Keys.onReleased: event => {
        if (event.key === Qt.Key_Shift && !event.isAutoRepeat)
            keyHeld = false;
        event.accepted = false;
    }
    onActiveFocusChanged: {
        keyHeld = false;
        if (activeFocus)
            touched();
    }

    HoverHandler {
        id: hover
    }

    OrvexPanel {
        anchors.fill: parent
        focus: true
        glow: hover.hovered || card.applying
        padding: card.padding

        contentItem: ColumnLayout {
            spacing: 0

            Rectangle {
                Layout.fillWidth: true
                Layout.preferredHeight: width * 9 / 16
                color: Qt.rgba(0, 0, 0, picture.ready ? 0 : 0.22)
                radius: OrvexTheme.buttonRadius

                LUTPreview {
                    id: picture

                    anchors.fill: parent
                    file: card.file
                    objectName: "picture"
                    opacity: ready ? 1 : 0
                    previews: card.previews
                    radius: OrvexTheme.buttonRadius
                    split: card.keyHeld ? 1 : compare.split

                    Behavior on opacity {
                        enabled: card.OrvexMotion.animated

                        NumberAnimation {
                            duration: OrvexTheme.quick
                        }
                    }
                }

                OrvexSymbol {
                    anchors.centerIn: parent
                    color: OrvexTheme.fade(OrvexTheme.text, 0.16)
                    name: "camera.filters"
                    size: 26
                    visible: !picture.ready && card.error.length === 0
                }

                ColumnLayout {
                    anchors.left: parent.left
                    anchors.margins: 12
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 6
                    visible: card.error.length > 0

                    OrvexSymbol {
                        Layout.alignment: Qt.AlignHCenter
                        color: OrvexTheme.warning
                        name: "exclamationmark.triangle.fill"
                        size: 20
                    }

                    OrvexText {
                        id: reason

                        Accessible.ignored: true
                        Layout.fillWidth: true
                        horizontalAlignment: Text.AlignHCenter
                        maximumLineCount: 4
                        objectName: "error"
                        size: 9
                        text: picture.error
                        wrapMode: Text.Wrap
                    }
                }

                OrvexBadge {
                    anchors.left: parent.left
                    anchors.margins: 8
                    anchors.top: parent.top
                    fill: Qt.rgba(0, 0, 0, 0.6)
                    ink: OrvexTheme.text
                    text: "ORİJİNAL"
                    visible: picture.ready && picture.split > 0
                }

                MouseArea {
                    id: compare

                    property real pressX: 0
                    property bool dragged: false
                    property real split: 0

                    anchors.fill: parent
                    enabled: picture.ready
                    preventStealing: dragged

                    onCanceled: split = 0
                    onPositionChanged: event => {
                        dragged = dragged || Math.abs(event.x - pressX) > 6;
                        if (dragged)
                            split = event.x / width;
                    }
                    onPressed: event => {
                        pressX = event.x;
                        dragged = false;
                        split = 1;
                    }
                    onReleased: split = 0
                }

                HoverHandler {
                    id: pictureHover
                }

                OrvexToolTip {
                    text: picture.ready ? "Orijinali görmek için basılı tut (klavyede Shift), karşılaştırmak için sürükle" : picture.error
                    visible: pictureHover.hovered && !compare.pressed && (picture.ready || reason.truncated)
                }
            }

            OrvexText {
                id: nameText

                Accessible.ignored: true
                Layout.fillWidth: true
                Layout.topMargin: 9
                size: 12
                text: card.name
                weight: Font.Bold
            }

            OrvexText {
                id: captionText

                Accessible.ignored: true
                Layout.fillWidth: true
                Layout.topMargin: 2
                color: OrvexTheme.muted
                size: 9
                text: card.caption
            }

            Item {
                Layout.fillHeight: true
            }

            RowLayout {
                spacing: 6

                OrvexButton {
                    id: apply

                    focus: card.usable
                    Accessible.description: "Seçili Final Cut klibine uygula"
                    Layout.fillWidth: true
                    enabled: card.activePath.length === 0
                    activeFocusOnTab: card.current || activeFocus
                    icon: "camera.filters"
                    objectName: "apply"
                    title: card.applying ? "UYGULANIYOR…" : "UYGULA"
                    visible: card.usable

                    onClicked: card.apply()

                    OrvexToolTip {
                        text: "Seçili Final Cut klibine uygula"
                        visible: apply.hovered
                    }
                }

                OrvexText {
                    Layout.fillWidth: true
                    color: OrvexTheme.warning
                    size: 10
                    text: "Bu LUT kullanılamıyor"
                    visible: !card.usable
                    weight: Font.Bold
                }

                OrvexButton {
                    id: reveal

                    focus: !card.usable
                    Accessible.description: card.revealDescription
                    activeFocusOnTab: card.current || activeFocus
                    icon: "folder"
                    name: "Finder’da göster"
                    objectName: "reveal"

                    onClicked: card.reveal()
                }
            }
        }
    }

    OrvexToolTip {
        text: card.name + "\n" + card.caption
        visible: hover.hovered && !pictureHover.hovered && !apply.hovered && !reveal.hovered && (nameText.truncated || captionText.truncated)
    }
}
