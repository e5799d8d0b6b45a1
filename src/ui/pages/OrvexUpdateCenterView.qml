import QtQuick
import QtQuick.Layouts
import Orvex

// The panel's version and the content packs.
OrvexScrollPage {
    id: page

    required property OrvexState state

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "VANTRELO RELEASE CLOUD"
        title: "Update Center"
        subtitle: "App + Universal Pack Cloud"
    }
}
