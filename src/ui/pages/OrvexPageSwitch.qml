import QtQuick
import Orvex
import Orvex.Color

// Shows the active page over the backdrop. Every switch builds the page anew, so that what a page
// keeps for itself starts over.
Item {
    id: view

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug
    required property FinalCutHostAdapter hostAdapter
    required property ColorServices colorServices
    required property OrvexDesktop desktop
    required property bool active
    required property real contentTopPadding

    readonly property string pageId: view.state.activePage.id
    readonly property Item page: loader.item as Item
    property bool complete: false
    // The page that is to be there, or none. Each is a file of its own that is read when it is first
    // shown: the other pages' types cost neither time nor memory until then.
    readonly property string file: view.complete && view.active ? "wired/" + view.pageId + ".qml" : ""

    clip: true
    Accessible.role: Accessible.Pane
    Accessible.name: view.state.activePage.title
    Component.onCompleted: complete = true
    onFileChanged: loader.setSource(view.file, {
        view: view
    })
    onPageIdChanged: {
        entrance.jump(0);
        entrance.to = 1;
    }

    OrvexAnimatedBackdrop {
        anchors.fill: parent
    }

    OrvexSpring {
        id: entrance

        to: 1
        response: 0.42
        dampingFraction: 0.78
    }

    Loader {
        id: loader

        width: view.width
        height: view.height - view.contentTopPadding
        y: view.contentTopPadding + 14 * (1 - entrance.value)
        opacity: Math.max(0, Math.min(1, entrance.value))
    }
}
