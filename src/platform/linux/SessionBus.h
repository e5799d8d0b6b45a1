#pragma once

#include <QDBusConnection>

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

 private:
  QDBusConnection connection_;
};

}  // namespace orvex
