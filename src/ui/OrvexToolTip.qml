import QtQuick
import QtQuick.Templates as T
import Orvex

/// The whole of a text that was cut, or what a picture alone does not say.
T.ToolTip {
    id: tip

    delay: OrvexTheme.toolTipDelay
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: Math.min(360, implicitContentWidth + leftPadding + rightPadding)
    margins: 8
    padding: 8
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: -height - 4

    background: Rectangle {
        border.color: OrvexTheme.borderBlue
        color: OrvexTheme.panelStrong
        radius: OrvexTheme.chipRadius
    }
    // Few of the many that a page holds are ever seen: the text is made when one is.
    contentItem: Loader {
        active: tip.visible
        sourceComponent: words
    }

    // The toolkit's Loader cannot make bound components, so this one is not, and the linter does not
    // know the identifiers in it.
    // qmllint disable unqualified
    Component {
        id: words

        OrvexText {
            Accessible.ignored: true
            size: 10
            text: tip.text
            wrapMode: Text.Wrap
        }
    }
    // qmllint enable unqualified
}
