import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Speed

// A preset with a small drawing of its curve.
OrvexPressable {
    id: card

    required property string name
    required property list<real> points
    required property bool selected

    Accessible.checkable: true
    Accessible.checked: selected
    Accessible.name: name
    Accessible.role: Accessible.RadioButton
    opacity: pressed ? OrvexTheme.pressedOpacity : 1
    padding: 10

    // The toolkit's rectangle draws an outline of one and a half points uneven.
    background: OrvexSurface {
        endColor: OrvexTheme.panel
        outlineColor: card.selected ? OrvexTheme.cyan : card.hovered ? OrvexTheme.borderBlue : OrvexTheme.border
        outlineWidth: card.selected ? 1.5 : 1
        radius: 13
        startColor: OrvexTheme.panel
    }
    contentItem: ColumnLayout {
        spacing: 8

        MiniCurve {
            Layout.fillWidth: true
            Layout.preferredHeight: 58
            color: OrvexTheme.cyan
            curve: card.points
        }

        OrvexText {
            Accessible.ignored: true
            Layout.fillWidth: true
            color: card.selected ? OrvexTheme.text : OrvexTheme.muted
            size: 8
            text: card.name
            tracking: 0.8
            weight: Font.Black
        }
    }

    OrvexFocusRing {
        targetRadius: 13
        shown: card.visualFocus
    }
}
