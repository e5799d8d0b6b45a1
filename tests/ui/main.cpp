#include "ui/OrvexSymbols.h"

#include <QAccessible>
#include <QFont>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QRawFont>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)

namespace {

/// What the tests need and QML cannot reach.
class Setup : public QObject {
  Q_OBJECT

 public:
  /// Symbols that the icon font has no drawing for.
  Q_INVOKABLE QStringList undrawnSymbols() const {
    const QFont font(QStringLiteral("Material Icons"));
    const QRawFont raw = QRawFont::fromFont(font);
    QStringList undrawn;
    for (const orvex::Glyph& glyph : orvex::symbolTable()) {
      if (raw.familyName() != font.family() || !raw.supportsCharacter(QChar(glyph.code)))
        undrawn.append(QStringView(glyph.name).toString());
    }
    return undrawn;
  }

  Q_INVOKABLE QString accessibleText(QObject* object) const {
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(object);
    return interface != nullptr ? interface->text(QAccessible::Name) : QString();
  }

  /// Presses as a screen reader would.
  Q_INVOKABLE bool pressAccessibly(QObject* object) const {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(object);
    auto* actions = interface != nullptr ? interface->actionInterface() : nullptr;
    if (actions == nullptr) return false;
    actions->doAction(QAccessibleActionInterface::pressAction());
    return true;
  }

 public Q_SLOTS:
  void applicationAvailable() { QAccessible::setActive(true); }
  void qmlEngineAvailable(QQmlEngine* engine) {
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine->rootContext()->setContextProperty(QStringLiteral("setup"), this);
  }
};

}  // namespace

QUICK_TEST_MAIN_WITH_SETUP(ui, Setup)

#include "main.moc"
