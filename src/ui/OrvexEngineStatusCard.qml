import QtQuick
import QtQuick.Layouts
import Orvex

/// What an engine reports of itself, with one thing to do about it when `actionTitle` is given. While
/// it is `busy` the card says so, with `done` of `total` as far as they are known.
Item {
    id: card

    required property engineSummary summary
    property string actionTitle
    /// What the engine failed with; empty when it did not.
    property string error
    property bool busy: false
    property real done: 0
    property real total: 0

    readonly property string count: OrvexFormat.count(summary)
    readonly property string healthWord: {
        if (card.busy)
            return "SCANNING";
        switch (summary.health) {
        case EngineHealth.Ready:
            return "READY";
        case EngineHealth.NeedsAccess:
            return "ACCESS";
        case EngineHealth.Empty:
            return "EMPTY";
        case EngineHealth.Unavailable:
            return "OFFLINE";
        default:
            return "ERROR";
        }
    }
    readonly property color healthColor: {
        if (card.busy)
            return OrvexTheme.cyan;
        switch (summary.health) {
        case EngineHealth.Ready:
            return OrvexTheme.success;
        case EngineHealth.NeedsAccess:
            return OrvexTheme.warning;
        case EngineHealth.Empty:
            return OrvexTheme.muted;
        default:
            return OrvexTheme.danger;
        }
    }

    signal clicked

    Accessible.description: error.length > 0 ? error : summary.detail
    Accessible.name: summary.title + ": " + healthWord + ", " + count
    Accessible.role: Accessible.Grouping
    implicitHeight: lift.implicitHeight
    implicitWidth: lift.implicitWidth

    HoverHandler {
        id: hover
    }

    OrvexHoverLift {
        id: lift

        anchors.fill: parent
        hovering: hover.hovered

        OrvexPanel {
            anchors.fill: parent
            padding: 15

            contentItem: ColumnLayout {
                spacing: 0

                RowLayout {
                    spacing: 12

                    ColumnLayout {
                        Layout.alignment: Qt.AlignTop
                        spacing: 3

                        OrvexText {
                            Accessible.ignored: true
                            Layout.fillWidth: true
                            size: 13
                            text: card.summary.title
                            weight: Font.Black
                        }

                        OrvexText {
                            id: detail

                            Accessible.ignored: true
                            Layout.fillWidth: true
                            color: OrvexTheme.muted
                            maximumLineCount: 2
                            size: 9
                            text: card.summary.detail
                            wrapMode: Text.Wrap
                        }
                    }

                    ColumnLayout {
                        Layout.alignment: Qt.AlignTop
                        Layout.fillWidth: false
                        spacing: 3

                        OrvexText {
                            Accessible.ignored: true
                            Layout.alignment: Qt.AlignRight
                            // The tracking after the last letter.
                            Layout.rightMargin: -tracking
                            color: card.healthColor
                            size: 8
                            text: card.healthWord
                            tracking: 1
                            weight: Font.Black
                        }

                        OrvexText {
                            Accessible.ignored: true
                            Layout.alignment: Qt.AlignRight
                            size: 18
                            text: card.count
                            weight: Font.Black
                        }
                    }
                }

                OrvexText {
                    id: failure

                    Accessible.ignored: true
                    Layout.fillWidth: true
                    Layout.topMargin: 8
                    color: OrvexTheme.danger
                    maximumLineCount: 3
                    size: 9
                    text: card.error
                    visible: text.length > 0 && !card.busy
                    wrapMode: Text.Wrap
                }

                OrvexProgressBar {
                    Layout.fillWidth: true
                    Layout.topMargin: 10
                    done: card.done
                    name: "Taranıyor"
                    total: card.total
                    visible: card.busy
                }

                // Keeps the actions of a row of cards in line.
                Item {
                    Layout.fillHeight: true
                }

                OrvexTextButton {
                    Layout.alignment: Qt.AlignLeft
                    Layout.bottomMargin: -bottomPadding
                    Layout.fillWidth: true
                    Layout.maximumWidth: Math.ceil(implicitWidth)
                    Layout.topMargin: 10 - topPadding
                    title: card.actionTitle
                    visible: card.actionTitle.length > 0

                    onClicked: card.clicked()
                }
            }
        }
    }

    OrvexToolTip {
        text: failure.truncated ? card.error : card.summary.detail
        visible: hover.hovered && (failure.truncated || detail.truncated)
    }
}
