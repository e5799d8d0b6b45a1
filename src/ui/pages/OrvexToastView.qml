import QtQuick
import Orvex

// One toast: a symbol and a message that wraps rather than being cut.
Item {
    id: view

    required property orvexToast toast
    required property real widthLimit
    required property real heightLimit

    readonly property color accent: {
        switch (view.toast.kind) {
        case OrvexToast.Success:
            return OrvexTheme.blue;
        case OrvexToast.Error:
            return OrvexTheme.danger;
        }
        return OrvexTheme.warning;
    }
    readonly property string symbolName: {
        switch (view.toast.kind) {
        case OrvexToast.Success:
            return "checkmark.circle.fill";
        case OrvexToast.Error:
            return "exclamationmark.triangle.fill";
        }
        return "info.circle.fill";
    }

    implicitWidth: message.x + message.width + 14
    implicitHeight: Math.max(symbol.height, message.height) + 2 * 10

    Accessible.role: Accessible.AlertMessage
    Accessible.name: view.toast.message
    Accessible.ignored: !view.visible

    OrvexShadow {
        anchors.fill: surface
        radius: surface.radius
        blurRadius: 14
        color: Qt.rgba(0, 0, 0, 0.5)
    }

    Rectangle {
        id: surface

        anchors.fill: parent
        radius: 12
        color: OrvexTheme.panelStrong
        border.width: 1
        border.color: OrvexTheme.fade(view.accent, 0.42)
    }

    OrvexSymbol {
        id: symbol

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        name: view.symbolName
        size: 15
        color: view.accent
    }

    FontMetrics {
        id: metrics

        font: message.font
    }

    OrvexText {
        id: message

        Accessible.ignored: true
        x: symbol.x + symbol.width + 8
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(implicitWidth, view.widthLimit - x - 14)
        wrapMode: Text.Wrap
        maximumLineCount: Math.max(1, (view.heightLimit - 2 * 10) / metrics.lineSpacing)
        text: view.toast.message
        size: 10
        weight: Font.Bold
    }
}
