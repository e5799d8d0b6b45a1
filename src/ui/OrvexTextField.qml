import QtQuick
import QtQuick.Templates as T
import Orvex

/// One line to write into.
T.TextField {
    id: field

    // What is to be written, for who cannot see it.
    required property string name

    Accessible.name: name
    bottomPadding: 9
    color: OrvexTheme.text
    font.family: OrvexTheme.fontFamily
    font.pixelSize: 12
    hoverEnabled: true
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: 200
    leftPadding: 12
    rightPadding: 12
    selectByMouse: true
    selectedTextColor: OrvexTheme.text
    selectionColor: OrvexTheme.fade(OrvexTheme.blue, 0.6)
    topPadding: 9
    verticalAlignment: TextInput.AlignVCenter

    background: OrvexFieldGround {
        focused: field.activeFocus
        hovered: field.hovered
    }

    OrvexText {
        Accessible.ignored: true
        anchors.left: parent.left
        anchors.leftMargin: field.leftPadding
        anchors.right: parent.right
        anchors.rightMargin: field.rightPadding
        anchors.verticalCenter: parent.verticalCenter
        color: OrvexTheme.muted
        size: 12
        text: field.placeholderText
        visible: field.length === 0 && field.preeditText.length === 0
    }
}
