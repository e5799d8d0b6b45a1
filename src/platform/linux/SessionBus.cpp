#include "platform/linux/SessionBus.h"

#include <QDBusPendingCallWatcher>
#include <QMetaType>

#include <atomic>

namespace orvex {
namespace {

QString uniqueName() {
  static std::atomic<int> made = 0;
  return QStringLiteral("vantrelo-orvex-%1").arg(++made);
}

// The bus's thread reads messages, and looks up types for them, until it is ended when the process
// exits. The registry of types is made with the first type that is registered and must be the older
// of the two, as what is younger is destroyed first.
QDBusConnection connect() {
  struct First {};
  qRegisterMetaType<First>("orvex::SessionBus::First");
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, uniqueName());
}

}  // namespace

SessionBus::SessionBus() : connection_(connect()) {}

SessionBus::~SessionBus() {
  QDBusConnection::disconnectFromBus(connection_.name());
}

void SessionBus::ask(const QDBusMessage& call, std::chrono::milliseconds limit, QObject& owner,
                     std::function<void(const QDBusMessage& reply)> answered) {
  auto* const watcher = new QDBusPendingCallWatcher(
      connection_.asyncCall(call, static_cast<int>(limit.count())), &owner);
  const auto tell = [watcher, answered = std::move(answered)] {
    watcher->deleteLater();
    answered(watcher->reply());
  };
  // What cannot even be sent is over at once, and the watcher does not say so.
  if (watcher->isFinished())
    QMetaObject::invokeMethod(watcher, tell, Qt::QueuedConnection);
  else
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner, tell);
}

}  // namespace orvex
