import QtQuick
import QtQuick.Layouts
import Orvex

/// A number of LUTs and where they are from.
ColumnLayout {
    id: view

    required property int count
    required property string label

    Accessible.name: label + ": " + number.text
    Accessible.role: Accessible.StaticText
    spacing: 2

    OrvexText {
        id: number

        Accessible.ignored: true
        Layout.fillWidth: true
        size: 18
        text: view.count + " LUT"
        weight: Font.Black
    }

    OrvexText {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: OrvexTheme.muted
        size: 9
        text: view.label
    }
}
