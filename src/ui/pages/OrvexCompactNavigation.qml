pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Pages

// The page strip of the compact layout. Its arrows move the focus of the strip from page to page
// without showing them; choosing a page moves it as well.
Rectangle {
    id: navigation

    required property OrvexState state
    required property bool armed
    // The identifier of the page that the strip is centred on.
    required property string focusedPage
    readonly property real horizontalPadding: 7

    signal pageChosen(id: string)
    signal focusMoved(id: string)

    function moveCompactNavigation(step: int): void {
        const last = OrvexPages.all.length - 1;
        const index = OrvexPages.indexOf(OrvexPages.byId(navigation.focusedPage)) + step;
        strip.setSpring(0.36, 0.8);
        navigation.moveFocus(OrvexPages.all[Math.max(0, Math.min(last, index))].id);
    }

    // The strip can have been dragged: it comes back to a page that has the focus already, too.
    function moveFocus(id: string): void {
        navigation.focusMoved(id);
        strip.centre();
    }

    color: OrvexTheme.background
    implicitHeight: strip.height

    Connections {
        target: navigation.state

        function onActivePageChanged(): void {
            navigation.moveFocus(navigation.state.activePage.id);
        }
    }

    Flickable {
        id: strip

        // Where the focused page is in the middle, as far as the ends of the strip allow.
        function centredX(): real {
            const button = buttons.itemAt(OrvexPages.indexOf(OrvexPages.byId(navigation.focusedPage)));
            return button === null ? 0 : bounded(row.x + button.x + button.width / 2 - width / 2);
        }

        function bounded(x: real): real {
            return Math.max(0, Math.min(x, contentWidth - width));
        }

        function scrollTo(x: real): void {
            scroll.jump(contentX);
            scroll.to = bounded(x);
        }

        function centre(): void {
            scrollTo(centredX());
        }

        // Without a spring, for a strip that is laid out anew.
        function jumpToCentre(): void {
            scroll.jump(centredX());
            contentX = scroll.value;
        }

        function setSpring(response: real, dampingFraction: real): void {
            scroll.response = response;
            scroll.dampingFraction = dampingFraction;
        }

        function reveal(item: Item): void {
            const x = item.mapToItem(contentItem, 0, 0).x;
            const margin = row.leftPadding;
            if (x - margin < contentX || x + item.width + margin > contentX + width)
                scrollTo(x + item.width / 2 - width / 2);
        }

        objectName: "strip"
        anchors.left: backward.right
        anchors.right: forward.left
        anchors.leftMargin: 4
        anchors.rightMargin: 4
        height: parent.height
        contentWidth: Math.max(width, row.implicitWidth)
        flickableDirection: Flickable.HorizontalFlick
        boundsBehavior: Flickable.StopAtBounds
        interactive: row.implicitWidth > width
        onMovementStarted: scroll.jump(contentX)
        onWidthChanged: jumpToCentre()
        onContentWidthChanged: jumpToCentre()

        OrvexSpring {
            id: scroll

            response: 0.36
            dampingFraction: 0.8
            precision: 0.2
            onValueChanged: strip.contentX = value
        }

        Row {
            id: row

            anchors.centerIn: parent
            leftPadding: 4
            rightPadding: 4
            topPadding: 7
            bottomPadding: 7
            spacing: 6

            Repeater {
                id: buttons

                model: OrvexPages.all

                OrvexNavigationButton {
                    id: button

                    required property orvexPage modelData

                    page: modelData
                    compact: true
                    selected: navigation.state.activePage.id === modelData.id
                    armed: navigation.armed
                    onClicked: {
                        strip.setSpring(0.34, 0.82);
                        navigation.moveFocus(modelData.id);
                        navigation.pageChosen(modelData.id);
                    }
                    onVisualFocusChanged: if (visualFocus) strip.reveal(this)

                    // Shows where the arrows are while the strip has nothing to scroll.
                    Rectangle {
                        anchors.horizontalCenter: parent.horizontalCenter
                        anchors.top: parent.bottom
                        anchors.topMargin: 2
                        width: 10
                        height: 2
                        radius: 1
                        color: OrvexTheme.cyan
                        opacity: button.modelData.id === navigation.focusedPage && !button.selected ? 0.6 : 0
                    }
                }
            }
        }
    }

    OrvexCompactNavigationArrow {
        id: backward

        objectName: "backward"
        height: parent.height
        leading: true
        hidden: strip.contentX
        edgePadding: navigation.horizontalPadding
        icon: "chevron.left"
        name: "Önceki sayfaya kaydır"
        onClicked: navigation.moveCompactNavigation(-1)
    }

    OrvexCompactNavigationArrow {
        id: forward

        objectName: "forward"
        anchors.right: parent.right
        height: parent.height
        leading: false
        hidden: strip.contentWidth - strip.width - strip.contentX
        edgePadding: navigation.horizontalPadding
        icon: "chevron.right"
        name: "Sonraki sayfaya kaydır"
        onClicked: navigation.moveCompactNavigation(1)
    }
}
