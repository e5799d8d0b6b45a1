#include "platform/linux/BusPanel.h"

#include "platform/linux/SessionBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QObject>
#include <QVariant>

#include <chrono>

namespace orvex {
namespace {

constexpr auto kInterface = "com.vantrelo.orvex.finalcut.Panel";
constexpr std::chrono::milliseconds kCallLimit{1000};

QString busName() {
  return QString::fromLatin1(kInterface);
}
QString objectPath() {
  return QStringLiteral("/com/vantrelo/orvex/finalcut/Panel");
}

// The panel's object on the bus: the slots are its methods, under their own names.
class ExportedPanel final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "com.vantrelo.orvex.finalcut.Panel")

 public:
  ExportedPanel(SessionBus& bus, PanelEndpoint& panel) : bus_(bus), panel_(panel) {}
  ~ExportedPanel() override {
    if (!offered_) return;
    bus_.connection().unregisterService(busName());
    bus_.connection().unregisterObject(objectPath());
  }

  // The object comes before the name, so that who sees the name can call. Behind a panel that has
  // the name this one waits for it to go.
  [[nodiscard]] bool offer() {
    if (!bus_.connection().registerObject(objectPath(), this, QDBusConnection::ExportAllSlots))
      return false;
    offered_ = bus_.connection()
                   .interface()
                   ->registerService(busName(), QDBusConnectionInterface::QueueService)
                   .isValid();
    if (!offered_) bus_.connection().unregisterObject(objectPath());
    return offered_;
  }

 public Q_SLOTS:
  bool FocusPanel() { return panel_.focusPanel(); }
  QString HostInUse() { return panel_.hostInUse(); }
  bool PerformOnBuiltInHost(const QString& action) { return panel_.performOnBuiltInHost(action); }
  QString ApplyLUTOnBuiltInHost(const QString& name) { return panel_.applyLUTOnBuiltInHost(name); }

 private:
  SessionBus& bus_;
  PanelEndpoint& panel_;
  bool offered_ = false;
};

// What the panel's `method` returned; invalid when it did not, or returned something else.
template <typename T>
T call(SessionBus& bus, const QString& method, const QVariantList& arguments = {}) {
  QDBusMessage message = QDBusMessage::createMethodCall(busName(), objectPath(), busName(), method);
  message.setArguments(arguments);
  message.setAutoStartService(false);
  const QDBusMessage reply =
      bus.connection().call(message, QDBus::Block, static_cast<int>(kCallLimit.count()));
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() != 1 ||
      reply.arguments().constFirst().metaType() != QMetaType::fromType<T>())
    return T();
  return reply.arguments().constFirst().value<T>();
}

}  // namespace

std::unique_ptr<QObject> exportPanelOn(SessionBus& bus, PanelEndpoint& panel) {
  auto exported = std::make_unique<ExportedPanel>(bus, panel);
  if (!exported->offer()) return nullptr;
  return exported;
}

bool RemotePanel::focusPanel() {
  return call<bool>(bus_, QStringLiteral("FocusPanel"));
}

QString RemotePanel::hostInUse() {
  return call<QString>(bus_, QStringLiteral("HostInUse"));
}

bool RemotePanel::performOnBuiltInHost(const QString& action) {
  return call<bool>(bus_, QStringLiteral("PerformOnBuiltInHost"), {action});
}

QString RemotePanel::applyLUTOnBuiltInHost(const QString& name) {
  return call<QString>(bus_, QStringLiteral("ApplyLUTOnBuiltInHost"), {name});
}

}  // namespace orvex

#include "BusPanel.moc"
