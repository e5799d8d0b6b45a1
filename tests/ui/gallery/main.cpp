#include "engines/EngineHealth.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <chrono>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)

namespace {

using orvex::EngineHealth;
using orvex::EngineSummary;

QVariantList summaries() {
  const QList<EngineSummary> all = {
      {EngineHealth::Ready, QStringLiteral("LUT Library"),
       QStringLiteral("/home/editor/Movies/LUT/Kamera/Sony/S-Log3/Düğün/2026/Son kurgu"), 12345},
      {EngineHealth::NeedsAccess, QStringLiteral("Motion Templates"),
       QStringLiteral("Motion Templates klasörüne erişim ver."), 0},
      {EngineHealth::Empty, QStringLiteral("Audio Units"),
       QStringLiteral("Kayıtlı AU effect bulunamadı."), 0},
      {EngineHealth::Unavailable, QStringLiteral("Audio Units"),
       QStringLiteral("Bu sistemde çalışmaz."), 0},
      {EngineHealth::Error, QStringLiteral("FxPlug Registry"), QStringLiteral("Klasör okunamadı."),
       0}};
  QVariantList list;
  for (const EngineSummary& summary : all) list.append(QVariant::fromValue(summary));
  return list;
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  QCommandLineParser parser;
  parser.addOption({QStringLiteral("size"), {}, QStringLiteral("WxH"), QStringLiteral("1040x780")});
  parser.addOption({QStringLiteral("backdrop-only"), {}});
  parser.addOption({QStringLiteral("hidden"), {}});
  parser.addPositionalArgument(QStringLiteral("file"), {});
  parser.process(application);

  const QStringList size = parser.value(QStringLiteral("size")).split(u'x');
  QQuickView view;
  view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
  view.setResizeMode(QQuickView::SizeRootObjectToView);
  view.resize(size.value(0).toInt(), size.value(1).toInt());
  view.setInitialProperties(
      {{QStringLiteral("backdropOnly"), parser.isSet(QStringLiteral("backdrop-only"))},
       {QStringLiteral("summaries"), summaries()}});
  view.setSource(QUrl(QStringLiteral("qrc:/Gallery.qml")));
  if (view.status() != QQuickView::Ready) return 1;
  view.show();

  using namespace std::chrono_literals;
  if (parser.isSet(QStringLiteral("hidden"))) QTimer::singleShot(2s, &view, &QWindow::hide);
  if (const QStringList files = parser.positionalArguments(); !files.isEmpty()) {
    QTimer::singleShot(1500ms, &view, [&view, file = files.first()] {
      const bool saved = view.grabWindow().save(file);
      if (!saved) std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(file));
      QGuiApplication::exit(saved ? 0 : 1);
    });
  }
  return QGuiApplication::exec();
}
