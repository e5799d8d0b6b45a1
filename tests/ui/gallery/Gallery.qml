import QtQuick
import QtQuick.Layouts
import Orvex

Item {
    id: gallery

    property bool backdropOnly: false
    required property var summaries

    readonly property list<string> symbols: ["house.fill", "timeline.selection", "gauge.with.dots.needle.67percent", "sparkles.rectangle.stack", "waveform", "circle.lefthalf.filled", "shippingbox.fill", "arrow.triangle.2.circlepath.circle.fill", "paperplane.fill", "arrow.clockwise", "arrow.triangle.2.circlepath", "backward.end.fill", "backward.frame.fill", "gobackward", "goforward", "forward.frame.fill", "forward.end.fill", "bolt.fill", "bolt.horizontal.fill", "camera.filters", "checkmark.circle.fill", "exclamationmark.triangle.fill", "info.circle.fill", "chevron.left", "chevron.right", "doc.on.doc", "eye", "film", "folder", "folder.badge.plus", "gauge.with.dots.needle.50percent", "gearshape.fill", "icloud.and.arrow.down", "magnifyingglass", "pause.fill", "photo", "play.fill", "plus", "point.topleft.down.curvedto.point.bottomright.up", "rectangle.split.2x1", "slider.horizontal.3", "square.3.layers.3d", "star", "star.fill", "textformat", "trash", "wand.and.stars", "xmark", "arrow.uturn.backward", "arrow.uturn.forward", "doc.on.clipboard"]

    OrvexAnimatedBackdrop {
        anchors.fill: parent
    }

    Timer {
        interval: 300
        running: true

        onTriggered: first.forceActiveFocus(Qt.TabFocusReason)
    }

    OrvexScrollPage {
        anchors.fill: parent
        visible: !gallery.backdropOnly

        RowLayout {
            Layout.fillWidth: true
            OrvexSectionTitle {
                Layout.fillWidth: true
                eyebrow: "ORVEX TIMELINE"
                subtitle: "Apple Workflow SDK ile gerçek timeline ve playhead kontrolü"
                title: "Timeline Control"
            }
            OrvexStatusBadge {
                connected: true
            }
            OrvexStatusBadge {
                connected: false
            }
        }

        OrvexAdaptiveGrid {
            Layout.fillWidth: true
            minimumWidth: 145
            spacing: 10
            OrvexMetric {
                label: "Sequence"
                value: "Düğün – Çok uzun bir sekans adı, son kurgu v12"
            }
            OrvexMetric {
                label: "Playhead"
                value: "00:01:02.480"
            }
            OrvexMetric {
                label: "Duration"
                value: "00:12:40.000"
            }
            OrvexMetric {
                label: "Start"
                value: "0.00s"
            }
            OrvexMetric {
                label: "End"
                value: "760.00s"
            }
            OrvexMetric {
                label: "FPS"
                value: "25.00"
            }
        }

        OrvexAdaptiveGrid {
            Layout.fillWidth: true
            minimumWidth: 210
            spacing: 10
            OrvexToolCard {
                id: first
                badge: "REAL"
                icon: "backward.end.fill"
                subtitle: "Timeline başlangıcına git"
                title: "Sequence Start"
            }
            OrvexToolCard {
                badge: "REAL"
                icon: "forward.frame.fill"
                enabled: false
                subtitle: "frameDuration bekleniyor"
                title: "+1 Frame"
            }
            OrvexToolCard {
                icon: "arrow.triangle.2.circlepath"
                subtitle: "Uzun bir alt başlık; iki satıra kadar sarılır, daha uzun olanı ise üç nokta ile biter ve yanındakiyle çakışmaz"
                title: "Final Cut bağlantısını yenile, uzun başlık"
                badge: "REAL"
            }
            OrvexToolCard {
                icon: "point.topleft.down.curvedto.point.bottomright.up"
                subtitle: "Playhead konumunda ramp geçişi oluştur"
                title: "Speed Point"
            }
        }

        OrvexAdaptiveGrid {
            Layout.fillWidth: true
            minimumWidth: 230
            spacing: 10
            Repeater {
                model: gallery.summaries
                OrvexEngineStatusCard {
                    required property var modelData
                    required property int index
                    actionTitle: ["Yenile", "Motion Templates klasörünü seç", "Audio Units yenile", "", "Yenile"][index]
                    summary: modelData
                }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 10
            OrvexPrimaryButton {
                Layout.fillWidth: true
                icon: "arrow.clockwise"
                title: "Timeline bilgisini yenile"
            }
            OrvexPrimaryButton {
                Layout.fillWidth: true
                disabled: true
                icon: "bolt.fill"
                title: "SPEED RAMP NOKTASI UYGULA"
            }
        }

        OrvexPanel {
            Layout.fillWidth: true
            glow: true
            padding: 18
            contentItem: Flow {
                spacing: 14
                Repeater {
                    model: gallery.symbols
                    OrvexSymbol {
                        required property string modelData
                        name: modelData
                        size: 26
                    }
                }
            }
        }

        EmptyEngineView {
            Layout.fillWidth: true
            icon: "folder.badge.plus"
            message: "Sandbox nedeniyle klasörü bir kez seç. Vantrelo Orvex güvenlik kapsamlı bookmark ile sonraki açılışlarda erişimi geri yükler."
            title: "Motion Templates erişimi gerekli"
        }
    }
}
