import QtQuick
import QtQuick.Layouts
import Orvex

/// A card that does something when pressed.
OrvexPressable {
    id: card

    required property string icon
    required property string title
    required property string subtitle
    property string badge

    Accessible.description: subtitle
    Accessible.name: title

    contentItem: OrvexHoverLift {
        hovering: hover.hovered
        opacity: card.enabled ? 1 : OrvexTheme.disabledOpacity
        pressed: card.pressed

        OrvexPanel {
            anchors.fill: parent
            padding: 13

            contentItem: RowLayout {
                spacing: 12

                Rectangle {
                    Layout.preferredHeight: 42
                    Layout.preferredWidth: 42
                    color: OrvexTheme.fade(OrvexTheme.blue, 0.13)
                    radius: OrvexTheme.tileRadius

                    OrvexSymbol {
                        anchors.centerIn: parent
                        name: card.icon
                        size: 16
                    }
                }

                ColumnLayout {
                    spacing: 4

                    RowLayout {
                        spacing: 6

                        OrvexText {
                            Accessible.ignored: true
                            Layout.fillWidth: true
                            Layout.maximumWidth: Math.ceil(implicitWidth)
                            maximumLineCount: 2
                            size: 12
                            text: card.title
                            weight: Font.Bold
                            wrapMode: Text.Wrap
                        }

                        OrvexBadge {
                            Accessible.ignored: true
                            fill: OrvexTheme.fade(OrvexTheme.blue, 0.11)
                            text: card.badge
                            visible: text.length > 0
                        }
                    }

                    OrvexText {
                        Accessible.ignored: true
                        Layout.fillWidth: true
                        color: OrvexTheme.muted
                        maximumLineCount: 2
                        size: 9
                        text: card.subtitle
                        wrapMode: Text.Wrap
                    }
                }
            }
        }
    }

    HoverHandler {
        id: hover
    }

    OrvexFocusRing {
        targetRadius: OrvexTheme.panelRadius
        shown: card.visualFocus
    }
}
