import QtQuick
import Orvex
import Orvex.Pages

// Shows the state's toast at the top trailing corner. A message that replaces another does so in
// place; only the first one enters and only the last one leaves.
Item {
    id: overlay

    required property OrvexState state
    required property bool compact

    readonly property real trailingPadding: 14
    readonly property real topPadding: overlay.compact ? 112 : 76
    // 0 while there is no toast, 1 while there is one.
    property real presence: overlay.state.hasToast ? 1 : 0

    Behavior on presence {
        enabled: overlay.OrvexMotion.animated

        NumberAnimation {
            duration: OrvexTheme.easing
            easing.type: Easing.InOutQuad
        }
    }

    OrvexToastView {
        objectName: "toast"
        anchors.right: parent.right
        anchors.rightMargin: overlay.trailingPadding
        y: overlay.topPadding - (1 - overlay.presence) * height
        heightLimit: overlay.height - overlay.topPadding - overlay.trailingPadding
        widthLimit: Math.min(overlay.compact ? 360 : 520, overlay.width - 2 * overlay.trailingPadding)
        visible: overlay.presence > 0
        opacity: overlay.presence
        scale: 0.92 + 0.08 * overlay.presence
        toast: overlay.state.toast
    }
}
