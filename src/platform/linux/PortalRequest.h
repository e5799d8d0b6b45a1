#pragma once

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

namespace orvex {

class SessionBus;

/// One folder asked for through the portal. Deletes itself once it has ended; deleted before, it
/// takes the dialog off the screen and calls nothing.
class PortalRequest final : public QObject {
  Q_OBJECT

 public:
  /// Exactly one of them is called, once.
  struct Outcome {
    /// The dialog ended: with a folder, or without.
    std::function<void(std::optional<QUrl>)> ended;
    /// No dialog was shown, for the reason given.
    std::function<void(const QString& reason)> unavailable;
  };

  PortalRequest(SessionBus& bus, QString title, QString prompt, const QUrl& start, Outcome outcome,
                QObject* parent);
  ~PortalRequest() override;

 private Q_SLOTS:
  void responded(const QDBusMessage& message);

 private:
  void open();
  void opened(const QDBusMessage& reply);
  void end(const std::optional<QUrl>& folder);
  void giveUp(const QString& reason);
  void then(const QDBusMessage& call, void (PortalRequest::*next)(const QDBusMessage& reply),
            std::chrono::milliseconds limit);
  void checkVersion(const QDBusMessage& reply);

  SessionBus& bus_;
  const QString title_;
  const QString prompt_;
  const QUrl start_;
  std::optional<Outcome> outcome_;
  const QString token_;
  /// The request's object on the portal.
  const QString path_;
  bool dialogOpen_ = false;
  QDBusServiceWatcher portal_;
};

}  // namespace orvex
