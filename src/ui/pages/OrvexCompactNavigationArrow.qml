import QtQuick
import Orvex

// An arrow at one end of the compact page strip. The strip is not clipped, so the arrow stands on a
// piece of the strip's background that hides what passes behind it, out to the edge of the panel.
Item {
    id: arrow

    required property string icon
    required property string name
    // The width of the strip's outer padding, which is hidden too.
    required property real edgePadding
    required property bool leading
    // How much of the strip has passed behind it.
    required property real hidden

    signal clicked

    implicitWidth: edgePadding + 27
    implicitHeight: 30

    Rectangle {
        anchors.fill: parent
        color: OrvexTheme.background

        // Keeps clicks from the entries behind.
        MouseArea {
            anchors.fill: parent
        }
    }

    Rectangle {
        x: arrow.leading ? parent.width : -width
        width: 24
        height: parent.height
        // At its end the strip is whole.
        opacity: Math.max(0, Math.min(1, arrow.hidden / width))

        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop {
                position: arrow.leading ? 0 : 1
                color: OrvexTheme.background
            }

            GradientStop {
                position: arrow.leading ? 1 : 0
                color: OrvexTheme.fade(OrvexTheme.background, 0)
            }
        }
    }

    OrvexPressable {
        id: button

        x: arrow.leading ? arrow.edgePadding : 0
        anchors.verticalCenter: parent.verticalCenter
        width: 27
        height: 30
        Accessible.name: arrow.name
        onClicked: arrow.clicked()

        background: Rectangle {
            radius: 9
            opacity: button.pressed ? OrvexTheme.pressedOpacity : 1
            color: button.hovered ? OrvexTheme.mix(OrvexTheme.panelStrong, OrvexTheme.cyan, 0.08) : OrvexTheme.panelStrong
            border.width: 1
            border.color: OrvexTheme.fade(OrvexTheme.cyan, 0.28)
        }

        OrvexSymbol {
            anchors.centerIn: parent
            name: arrow.icon
            // As high as a chevron in text of 10 points: the icon font's is half as high as its size.
            size: 16
        }

        OrvexFocusRing {
            targetRadius: 9
            shown: button.visualFocus
        }
    }
}
