#include "ui/OrvexSymbols.h"

#include <QFont>
#include <QObject>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QRawFont>
#include <QStringList>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)

namespace {

/// What the tests need to know and QML cannot tell.
class Setup : public QObject {
  Q_OBJECT

 public:
  /// Symbols that the icon font has no drawing for.
  Q_INVOKABLE QStringList undrawnSymbols() const {
    QFont font(QStringLiteral("Material Icons"));
    const QRawFont raw = QRawFont::fromFont(font);
    QStringList undrawn;
    for (const orvex::Glyph& glyph : orvex::symbolTable()) {
      if (raw.familyName() != font.family() || !raw.supportsCharacter(QChar(glyph.code)))
        undrawn.append(QString(QStringView(glyph.name)));
    }
    return undrawn;
  }

 public Q_SLOTS:
  void qmlEngineAvailable(QQmlEngine* engine) {
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine->rootContext()->setContextProperty(QStringLiteral("setup"), this);
  }
};

}  // namespace

QUICK_TEST_MAIN_WITH_SETUP(ui, Setup)

#include "main.moc"
