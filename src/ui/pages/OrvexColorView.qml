import QtQuick
import QtQuick.Layouts
import Orvex

// LUTs of the installed packs and of the user's own folder.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property LUTRegistry registry

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "ORVEX COLOR"
        title: "Color & LUT Library"
        subtitle: "Vantrelo Cloud + yerel .cube kataloğu"
    }
}
