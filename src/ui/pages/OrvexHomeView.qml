import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Pages

// What the panel controls at a glance.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug
    required property var refreshHost

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "FINAL CUT CONTROL"
        title: "Orvex Host Center"
        subtitle: "Host + gerçek engine registry + Release Center"
    }
}
