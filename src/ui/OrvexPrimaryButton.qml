import QtQuick
import Orvex

/// The one thing to do on a page.
OrvexPressable {
    id: button

    required property string title
    required property string icon
    property bool disabled: false

    readonly property color ink: enabled ? OrvexTheme.text : OrvexTheme.muted

    Accessible.name: title
    bottomPadding: 11
    enabled: !disabled
    leftPadding: 14
    rightPadding: 14
    topPadding: 11

    background: OrvexSurface {
        endColor: button.enabled ? OrvexTheme.mix(OrvexTheme.blue, OrvexTheme.background, 0.38) : OrvexTheme.fade(OrvexTheme.blue, 0.1)
        opacity: button.pressed ? OrvexTheme.pressedOpacity : 1
        outlineColor: button.enabled ? OrvexTheme.fade(OrvexTheme.cyan, 0.5) : OrvexTheme.fade(OrvexTheme.blue, 0.16)
        radius: OrvexTheme.buttonRadius
        startColor: button.enabled ? OrvexTheme.mix(OrvexTheme.blue, OrvexTheme.background, 0.08) : OrvexTheme.fade(OrvexTheme.blue, 0.14)
    }
    contentItem: Item {
        implicitHeight: Math.max(symbol.implicitHeight, label.implicitHeight)
        implicitWidth: row.implicitWidth

        Row {
            id: row

            anchors.centerIn: parent
            spacing: 7

            OrvexSymbol {
                id: symbol

                anchors.verticalCenter: parent.verticalCenter
                color: button.ink
                name: button.icon
                size: 14
            }

            OrvexText {
                id: label

                Accessible.ignored: true
                anchors.verticalCenter: parent.verticalCenter
                color: button.ink
                size: 11
                text: button.title
                weight: Font.Black
                width: Math.min(implicitWidth, button.availableWidth - symbol.width - row.spacing)
            }
        }
    }

    OrvexFocusRing {
        targetRadius: OrvexTheme.buttonRadius
        shown: button.visualFocus
    }
}
