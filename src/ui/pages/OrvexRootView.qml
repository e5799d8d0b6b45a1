import QtQuick
import Orvex
import Orvex.Color
import Orvex.Pages

// The panel's one top-level view: fits itself to the size that the host granted, lays out either
// form of the navigation around the page and shows the toast.
Item {
    id: root

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug
    required property FinalCutHostAdapter hostAdapter
    required property ColorServices colorServices
    required property OrvexDesktop desktop

    // Whether the page is made; who shows the view can hold it back until the frame around it is seen.
    property bool pageWanted: true

    readonly property bool compact: panel.width < OrvexPanelMetrics.wideWidth
    // The page that the compact strip is centred on: the active one, until the strip's arrows move it
    // and from the next change of the active page on again.
    property string compactNavFocus: root.state.activePage.id

    // Sizes that the host has not reported yet, or that are too small to be meant, do not bind.
    function fitted(reported: real, proposed: real): real {
        return reported >= root.state.leastPanelExtent ? Math.min(reported, proposed) : proposed;
    }

    function show(id: string): void {
        root.state.activePage = OrvexPages.byId(id);
    }

    clip: true
    focus: true
    // What the navigation does not take, and what is pressed before anything has the focus.
    Keys.forwardTo: content.page ? [content.page] : []

    Connections {
        target: root.state
        function onActivePageChanged(): void {
            root.compactNavFocus = root.state.activePage.id;
        }
    }

    Rectangle {
        anchors.fill: parent
        color: OrvexTheme.background
    }

    Item {
        id: panel

        objectName: "panel"
        // A panel shorter than the space it is offered hugs the bottom edge.
        y: root.height - height > 1 ? root.height - height : 0
        width: root.fitted(root.state.panelWidth, root.width)
        height: root.fitted(root.state.panelHeight, root.height)
        clip: true

        // Only the frame around the page depends on the layout; the page itself stays what it is,
        // and so does what the user has typed into it.
        Loader {
            id: frame

            anchors.fill: parent
            // Before the view has a size there is no layout to choose.
            active: panel.width > 0 && panel.height > 0
            sourceComponent: root.compact ? compactFrame : wideFrame
        }

        OrvexPageSwitch {
            id: content

            objectName: "content"
            x: root.compact ? 0 : OrvexPanelMetrics.sidebarWidth + 1
            y: root.compact ? OrvexPanelMetrics.compactHeaderHeight : OrvexPanelMetrics.topbarHeight + 1
            width: panel.width - x
            height: panel.height - y
            active: frame.active && root.pageWanted
            contentTopPadding: root.compact ? OrvexPanelMetrics.compactContentTopPadding : 0
            state: root.state
            motion: root.motion
            audio: root.audio
            luts: root.luts
            fxplug: root.fxplug
            hostAdapter: root.hostAdapter
            colorServices: root.colorServices
            desktop: root.desktop
        }

        OrvexToastOverlay {
            state: root.state
            compact: root.compact
            anchors.fill: parent
        }
    }

    // The toolkit's Loader cannot make bound components, so these are not, and the linter does not know
    // the identifiers in them.
    // qmllint disable unqualified
    Component {
        id: wideFrame

        OrvexWideFrame {
            state: root.state
            armed: root.pageWanted
            onPageChosen: id => root.show(id)
        }
    }

    Component {
        id: compactFrame

        OrvexCompactFrame {
            state: root.state
            armed: root.pageWanted
            focusedPage: root.compactNavFocus
            onPageChosen: id => root.show(id)
            onFocusMoved: id => root.compactNavFocus = id
        }
    }
    // qmllint enable unqualified
}
