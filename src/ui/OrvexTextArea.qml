import QtQuick
import QtQuick.Templates as T
import Orvex

/// Several lines to write into, on a dark ground. It grows with what is written up to
/// `maximumLines` and scrolls from there on. Tab leaves it.
Item {
    id: area

    property alias text: edit.text
    property alias placeholderText: edit.placeholderText
    property alias readOnly: edit.readOnly
    readonly property alias editor: edit
    // What is to be written, for who cannot see it.
    required property string name
    property int minimumLines: 5
    property int maximumLines: 14

    function heightOf(lines: int): real {
        return Math.ceil(lines * metrics.lineSpacing) + edit.topPadding + edit.bottomPadding;
    }

    implicitHeight: Math.max(heightOf(minimumLines), Math.min(heightOf(maximumLines), Math.ceil(edit.implicitHeight)))
    implicitWidth: 200

    FontMetrics {
        id: metrics

        font: edit.font
    }

    OrvexFieldGround {
        anchors.fill: parent
        focused: edit.activeFocus
        hovered: edit.hovered
    }

    Flickable {
        id: flick

        anchors.fill: parent
        anchors.margins: 1
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        // Where there is nothing to scroll, the wheel is the page's.
        interactive: contentHeight > height

        T.ScrollBar.vertical: OrvexScrollBar {
        }

        T.TextArea.flickable: T.TextArea {
            id: edit

            Accessible.name: area.name
            KeyNavigation.priority: KeyNavigation.BeforeItem
            bottomPadding: 10
            color: OrvexTheme.text
            font.family: OrvexTheme.fontFamily
            font.pixelSize: 12
            hoverEnabled: true
            implicitHeight: contentHeight + topPadding + bottomPadding
            leftPadding: 12
            rightPadding: 14
            selectByMouse: true
            selectedTextColor: OrvexTheme.text
            selectionColor: OrvexTheme.fade(OrvexTheme.blue, 0.6)
            textFormat: TextEdit.PlainText
            topPadding: 10
            wrapMode: TextEdit.Wrap

            Keys.onPressed: event => {
                if (event.key !== Qt.Key_Tab && event.key !== Qt.Key_Backtab)
                    return;
                event.accepted = true;
                const forward = event.key === Qt.Key_Tab;
                edit.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
            }

            OrvexText {
                Accessible.ignored: true
                anchors.left: parent.left
                anchors.leftMargin: edit.leftPadding
                anchors.right: parent.right
                anchors.rightMargin: edit.rightPadding
                color: OrvexTheme.muted
                size: 12
                text: edit.placeholderText
                visible: edit.length === 0 && edit.preeditText.length === 0
                wrapMode: Text.Wrap
                y: edit.topPadding
            }
        }
    }
}
