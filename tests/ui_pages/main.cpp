#include "PanelObjects.h"

#include <QLocale>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_ColorPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

class Setup final : public QObject {
  Q_OBJECT

 public Q_SLOTS:
  void applicationAvailable() {
    // Numbers are written the same in every language, also in one with decimal commas.
    QLocale::setDefault(QLocale(QLocale::Turkish));
    qmlRegisterType<orvex::PanelObjects>("Orvex.Test", 1, 0, "PanelObjects");
  }
  void qmlEngineAvailable(QQmlEngine* engine) {
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
  }
};

QUICK_TEST_MAIN_WITH_SETUP(ui_pages, Setup)

#include "main.moc"
