#include "platform/linux/SessionBus.h"

#include <atomic>

namespace orvex {
namespace {

QString uniqueName() {
  static std::atomic<int> made = 0;
  return QStringLiteral("vantrelo-orvex-%1").arg(++made);
}

}  // namespace

SessionBus::SessionBus()
    : connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, uniqueName())) {}

SessionBus::~SessionBus() {
  QDBusConnection::disconnectFromBus(connection_.name());
}

}  // namespace orvex
