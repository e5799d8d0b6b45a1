import QtQuick
import QtQuick.Layouts
import Orvex

// The FxPlug bundles found.
OrvexScrollPage {
    id: page

    required property FxPlugRegistry registry

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "ORVEX FXPLUG"
        title: "FxPlug Registry"
        subtitle: "Seçilen FxPlug root içindeki gerçek bundle envanteri"
    }
}
