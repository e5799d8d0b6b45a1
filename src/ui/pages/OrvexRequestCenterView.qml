import QtQuick
import QtQuick.Layouts
import Orvex

// Writes to the vendor.
OrvexScrollPage {
    id: page

    required property OrvexState state

    OrvexSectionTitle {
        Layout.fillWidth: true
        eyebrow: "USER REQUEST CLOUD"
        title: "İstek Merkezi"
        subtitle: "Final Cut taleplerini Vantrelo backend'e gönder"
    }
}
