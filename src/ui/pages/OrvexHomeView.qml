import QtQuick
import QtQuick.Layouts
import Orvex

// What the panel controls at a glance.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property MotionTemplateRegistry motion
    required property AudioUnitRegistry audio
    required property LUTRegistry luts
    required property FxPlugRegistry fxplug

    signal refreshHost

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "FINAL CUT CONTROL"
        title: "Orvex Host Center"
        subtitle: "Host + gerçek engine registry + Release Center"
    }
}
