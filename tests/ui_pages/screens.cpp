// Draws the panel's pages into pictures, for people to look at.
#include "PanelObjects.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <cstdio>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

namespace {

using namespace orvex;

class Screens {
 public:
  explicit Screens(const QString& folder) : folder_(folder) {
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  }

  PanelObjects& objects() { return *objects_; }
  void startOver() { objects_ = std::make_unique<PanelObjects>(); }

  void panel(const QString& name, QSize size) {
    objects_->state()->setPanelWidth(size.width());
    objects_->state()->setPanelHeight(size.height());
    draw(name, size, QStringLiteral("OrvexRootView"),
         {{QStringLiteral("state"), QVariant::fromValue(objects_->state())},
          {QStringLiteral("motion"), QVariant::fromValue(objects_->motion())},
          {QStringLiteral("audio"), QVariant::fromValue(objects_->audio())},
          {QStringLiteral("luts"), QVariant::fromValue(objects_->luts())},
          {QStringLiteral("fxplug"), QVariant::fromValue(objects_->fxplug())},
          {QStringLiteral("hostAdapter"), QVariant::fromValue(objects_->hostAdapter())}});
  }

  void strip(const QString& name, int width) {
    draw(name, {width, 132}, QStringLiteral("BuiltInHostStrip"),
         {{QStringLiteral("host"), QVariant::fromValue(objects_->host())}});
  }

 private:
  void draw(const QString& name, QSize size, const QString& type, const QVariantMap& properties) {
    QQuickWindow window;
    window.resize(size);
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/Orvex/Pages/%1.qml").arg(type)));
    const std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
    auto* item = qobject_cast<QQuickItem*>(object.get());
    if (item == nullptr) qFatal("%s", qPrintable(component.errorString()));
    item->setParentItem(window.contentItem());
    item->setSize(size);
    window.show();
    // Pictures that are made away from the main thread arrive in this time.
    QTest::qWait(700);
    window.grabWindow().save(folder_.filePath(name + QStringLiteral(".png")));
  }

  QDir folder_;
  QQmlEngine engine_;
  std::unique_ptr<PanelObjects> objects_ = std::make_unique<PanelObjects>();
};

void drawPages(Screens& screens) {
  for (const QSize size :
       {QSize(1040, 780), QSize(979, 780), QSize(700, 780), QSize(360, 640), QSize(320, 320)}) {
    const QString suffix = QStringLiteral("-%1x%2").arg(size.width()).arg(size.height());
    screens.startOver();
    for (const OrvexPage page : OrvexPage::allCases()) {
      screens.objects().state()->setActivePage(page);
      if (page == OrvexPage::timeline)
        screens.panel(QStringLiteral("timeline-offline") + suffix, size);
    }
    screens.objects().connectHost();
    screens.objects().host()->seek(12.48);
    for (const OrvexPage page : OrvexPage::allCases()) {
      screens.objects().state()->setActivePage(page);
      screens.panel(page.id() + suffix, size);
    }
    screens.objects().state()->setActivePage(OrvexPage::timeline);
    screens.objects().toast(QStringLiteral("Retime Editor komutu Final Cut'a gönderildi."), 0, 60);
    screens.panel(QStringLiteral("toast-success") + suffix, size);
    screens.objects().toast(
        QStringLiteral(
            "Update Center • Sunucuya ulaşılamadı: bağlantı zaman aşımına uğradı. İnternet "
            "bağlantını denetle ve yeniden dene."),
        1, 60);
    screens.panel(QStringLiteral("toast-error") + suffix, size);
    screens.objects().toast(QStringLiteral("Final Cut frameDuration henüz hazır değil."), 2, 60);
    screens.panel(QStringLiteral("toast-info") + suffix, size);
  }
}

void drawStrip(Screens& screens) {
  screens.startOver();
  BuiltInHost& host = *screens.objects().host();
  host.seek(12.48);
  for (const int width : {1040, 360}) screens.strip(QStringLiteral("strip-%1").arg(width), width);
  host.performTimelineAction(QStringLiteral("blade-speed"));
  host.seek(33.2);
  host.performTimelineAction(QStringLiteral("blade-speed"));
  host.performTimelineAction(QStringLiteral("toggle-retime"));
  host.setSpeedPercent(50);
  for (const int width : {1040, 360})
    screens.strip(QStringLiteral("strip-retime-%1").arg(width), width);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("ORVEX_REDUCED_MOTION", "1");
  QGuiApplication application(argc, argv);
  if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::fputs("usage: ui_pages_screens FOLDER\n", stderr);
    return 2;
  }
  Screens screens(QString::fromLocal8Bit(argv[1]));
  drawPages(screens);
  drawStrip(screens);
  return 0;
}
