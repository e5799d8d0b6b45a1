import QtQuick
import Orvex

/// A symbol of the design, by its name there. Mere decoration for assistive technology: what it
/// belongs to has a name.
Text {
    id: symbol

    required property string name
    property int size: 16

    readonly property bool mirrored: OrvexSymbols.isMirrored(name)

    Accessible.ignored: true
    color: OrvexTheme.cyan
    font.bold: OrvexSymbols.isLine(name)
    font.family: OrvexTheme.iconFamily
    font.pixelSize: size
    horizontalAlignment: Text.AlignHCenter
    renderType: Text.NativeRendering
    rotation: OrvexSymbols.rotation(name)
    text: OrvexSymbols.text(name)
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter

    transform: Scale {
        origin.x: symbol.width / 2
        xScale: symbol.mirrored ? -1 : 1
    }
}
