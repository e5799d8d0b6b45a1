import QtQuick
import QtQuick.Layouts
import Orvex

/// The heading of a page or of a part of it. Without a `subtitle` it has two lines.
ColumnLayout {
    id: heading

    required property string eyebrow
    required property string title
    property string subtitle

    Accessible.description: subtitle
    Accessible.name: title
    Accessible.role: Accessible.Heading
    spacing: 4

    OrvexText {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: OrvexTheme.cyan
        size: 9
        text: heading.eyebrow
        tracking: 1.6
        weight: Font.Black
    }

    OrvexText {
        Accessible.ignored: true
        Layout.fillWidth: true
        size: 24
        text: heading.title
        weight: Font.Black
        wrapMode: Text.Wrap
    }

    OrvexText {
        Accessible.ignored: true
        Layout.fillWidth: true
        color: OrvexTheme.muted
        size: 10
        text: heading.subtitle
        visible: text.length > 0
        wrapMode: Text.Wrap
    }
}
