import QtQuick
import QtQuick.Layouts
import Orvex

// The Motion templates found.
OrvexScrollPage {
    id: page

    required property MotionTemplateRegistry registry

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "ORVEX MOTION"
        title: "Motion Template Registry"
        subtitle: "Gerçek .moef / .motn / .moti / .motr taraması"
    }
}
