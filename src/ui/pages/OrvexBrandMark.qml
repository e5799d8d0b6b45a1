import QtQuick
import Orvex

// The rounded square with the product's bolt.
Rectangle {
    id: mark

    required property real symbolSize

    color: OrvexTheme.fade(OrvexTheme.blue, 0.15)

    OrvexSymbol {
        anchors.centerIn: parent
        name: "bolt.horizontal.fill"
        size: mark.symbolSize
    }
}
