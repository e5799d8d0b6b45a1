import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Pages

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
