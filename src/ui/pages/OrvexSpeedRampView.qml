import QtQuick
import QtQuick.Layouts
import Orvex
import Orvex.Pages

// Speed ramps of the selected clip.
OrvexScrollPage {
    id: page

    required property OrvexState state
    required property var perform

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "ORVEX SPEED LAB"
        title: "Speed Ramp & Curves"
        subtitle: "Seçili klipte gerçek Final Cut retime komutları ve canlı cubic-bezier editörü"
    }
}
