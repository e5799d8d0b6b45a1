import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Library

/// One item of an inventory, to be pressed.
OrvexPressable {
    id: card

    required property string icon
    required property string title
    required property string detail
    /// Of the square that the icon stands in.
    property int iconExtent: 26
    /// What pressing it leads to, in a word.
    property string label
    /// A picture of it; empty for none.
    property url picture
    /// Words that hold or do not.
    property list<LibraryBadge> badges
    /// The card that the keyboard reaches.
    property bool current: false

    signal touched

    function takeFocus(): void {
        card.forceActiveFocus(Qt.TabFocusReason);
    }

    Accessible.description: [card.detail, ...Array.from(card.badges).map(badge => badge.text + (badge.holds ? ": var" : ": yok"))].join(", ")
    Accessible.name: card.title
    // What has the focus must not lose its place in the order of the Tab key.
    activeFocusOnTab: card.current || card.activeFocus
    padding: 12
    onActiveFocusChanged: if (card.activeFocus)
        card.touched()

    opacity: card.pressed ? OrvexTheme.pressedOpacity : 1

    background: OrvexPanelSurface {
        glow: hover.hovered
    }

    contentItem: RowLayout {
        spacing: 12

        OrvexSymbol {
            Layout.preferredHeight: card.iconExtent
            Layout.preferredWidth: card.iconExtent
            name: card.icon
            size: 18
        }

        ColumnLayout {
            spacing: 3

            OrvexText {
                id: titleText

                Accessible.ignored: true
                Layout.fillWidth: true
                size: 11
                text: card.title
                weight: Font.Bold
            }

            OrvexText {
                id: detailText

                Accessible.ignored: true
                Layout.fillWidth: true
                color: OrvexTheme.muted
                size: 8
                text: card.detail
            }

            Row {
                spacing: 8

                OrvexText {
                    Accessible.ignored: true
                    color: OrvexTheme.cyan
                    size: 7
                    text: card.label
                    visible: text.length > 0
                    weight: Font.Black
                }

                Repeater {
                    model: card.badges

                    OrvexText {
                        required property LibraryBadge modelData

                        Accessible.ignored: true
                        color: modelData.holds ? OrvexTheme.success : OrvexTheme.warning
                        size: 7
                        text: modelData.text
                        tracking: 0.6
                        weight: Font.Black
                    }
                }
            }
        }

        Image {
            Layout.preferredHeight: 42
            Layout.preferredWidth: 68
            asynchronous: true
            objectName: "picture"
            source: card.picture
            sourceSize.height: 42 * Screen.devicePixelRatio
            sourceSize.width: 68 * Screen.devicePixelRatio
            // Until it is there, and for good where it cannot be shown, the icon speaks for the item.
            visible: status === Image.Ready && implicitWidth > 1
        }
    }

    HoverHandler {
        id: hover
    }

    OrvexFocusRing {
        targetRadius: OrvexTheme.panelRadius
        shown: card.visualFocus
    }

    OrvexToolTip {
        text: card.title + "\n" + card.detail
        visible: hover.hovered && (titleText.truncated || detailText.truncated)
    }
}
