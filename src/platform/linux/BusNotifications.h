#pragma once

#include "platform/DistributedNotifications.h"

namespace orvex {

class SessionBus;
class SystemLog;

/// Notifications as signals on the session's bus: path `/com/vantrelo/orvex/finalcut`, interface
/// `com.vantrelo.orvex.DistributedNotifications`, member `Posted`, arguments name (s) and user-info
/// (a{sv}), from any sender. A signal with other arguments is ignored. Without a bus nothing
/// arrives.
class BusNotifications final : public DistributedNotifications {
 public:
  /// Both outlive this.
  BusNotifications(SessionBus& bus, SystemLog& log) : bus_(bus), log_(log) {}

  [[nodiscard]] std::unique_ptr<Token> subscribe(const QString& name, Handler handler) override;

 private:
  SessionBus& bus_;
  SystemLog& log_;
  bool absenceLogged_ = false;
};

}  // namespace orvex
