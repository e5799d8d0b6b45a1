import QtQuick
import Orvex

/// A line of text, or several with a `wrapMode`. What does not fit ends in an ellipsis. Markup in it
/// is shown as it stands. It is read out as it is, unless what it stands in has it in its name.
Text {
    property int size: 11
    property int weight: Font.Normal
    property real tracking: 0

    Accessible.name: text
    Accessible.role: Accessible.StaticText
    color: OrvexTheme.text
    elide: Text.ElideRight
    font.family: OrvexTheme.fontFamily
    font.letterSpacing: tracking
    font.pixelSize: size
    font.weight: weight
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
