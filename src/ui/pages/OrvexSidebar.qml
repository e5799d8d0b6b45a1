pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// The navigation of the wide layout: the brand and one entry per page.
Rectangle {
    id: sidebar

    required property OrvexState state
    required property bool armed

    signal pageChosen(id: string)

    color: OrvexTheme.sidebar

    Flickable {
        id: scroll

        // Scrolls what is focused into view: a panel may be lower than its list of pages.
        function reveal(item: Item): void {
            const y = item.mapToItem(column, 0, 0).y;
            contentY = Math.max(Math.min(contentY, y), y + item.height + column.bottomPadding - height);
        }

        anchors.fill: parent
        contentHeight: column.implicitHeight
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        clip: interactive

        Column {
            id: column

            width: scroll.width
            leftPadding: 13
            rightPadding: 13
            topPadding: 12
            bottomPadding: 13
            spacing: 10

            Row {
                spacing: 10

                OrvexBrandMark {
                    id: mark

                    width: 42
                    height: 42
                    radius: 11
                    symbolSize: 20
                }

                Column {
                    anchors.verticalCenter: mark.verticalCenter
                    spacing: 3

                    OrvexText {
                        text: "VANTRELO"
                        size: 10
                        weight: Font.Black
                        tracking: 1.2
                    }

                    OrvexText {
                        text: "ORVEX FINAL CUT"
                        size: 7
                        weight: Font.Black
                        tracking: 0.9
                        color: OrvexTheme.cyan
                    }
                }
            }

            Repeater {
                model: OrvexPages.all

                OrvexNavigationButton {
                    required property orvexPage modelData

                    width: column.width - column.leftPadding - column.rightPadding
                    page: modelData
                    compact: false
                    selected: sidebar.state.activePage.id === modelData.id
                    armed: sidebar.armed
                    onClicked: sidebar.pageChosen(modelData.id)
                    onVisualFocusChanged: if (visualFocus) scroll.reveal(this)
                }
            }
        }
    }

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: OrvexTheme.fade(OrvexTheme.blue, 0.22)
    }
}
