import QtQuick
import QtQuick.Layouts
import Orvex

// The system's audio effects.
OrvexScrollPage {
    id: page

    required property AudioUnitRegistry registry

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "ORVEX AUDIO"
        title: "Audio Unit Registry"
        subtitle: "macOS tarafından kayıtlı gerçek AU effect envanteri"
    }
}
