#pragma once

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace orvex {

/// Named messages with a dictionary, sent by any process of the user's session.
class DistributedNotifications {
 public:
  /// Keeps a subscription for as long as it lives.
  class Token {
   public:
    virtual ~Token() = default;
  };
  /// The dictionary as sent: values keep the type they were sent with.
  using Handler = std::function<void(const QVariantMap& userInfo)>;

  virtual ~DistributedNotifications() = default;

  /// Calls `handler` on the main thread for every notification called `name` from any sender.
  [[nodiscard]] virtual std::unique_ptr<Token> subscribe(const QString& name, Handler handler) = 0;
};

}  // namespace orvex
