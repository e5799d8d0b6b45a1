#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>

namespace orvex {

/// A connection of its own to the session's message bus. Whatever was subscribed, offered or
/// claimed over it ends with it, which a connection shared with the rest of the process would not
/// do.
class SessionBus {
 public:
  SessionBus();
  ~SessionBus();
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  /// Not connected when the session has no bus.
  [[nodiscard]] QDBusConnection& connection() noexcept { return connection_; }

  /// Sends `call` and later hands its reply to `answered`, at the latest after `limit`: an error
  /// where nobody replies or there is no bus. Nothing is handed over once `owner` is gone.
  void ask(const QDBusMessage& call, std::chrono::milliseconds limit, QObject& owner,
           std::function<void(const QDBusMessage& reply)> answered);

 private:
  QDBusConnection connection_;
};

}  // namespace orvex
