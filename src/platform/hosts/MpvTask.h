#pragma once

#include "platform/hosts/MpvConnection.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <expected>
#include <functional>
#include <memory>

namespace orvex {

/// A few commands to a running mpv that together do one thing, on a connection of their own and in
/// limited time. Deletes itself when it is done. Main thread only.
class MpvTask : public QObject {
  Q_OBJECT

 public:
  /// What was done, or why nothing was, as a sentence in Turkish. Called once, unless the task is
  /// destroyed first.
  using Done = std::function<void(std::expected<QString, QString>)>;

  MpvTask(std::unique_ptr<MpvConnection> connection, Done done, QObject* parent,
          std::chrono::milliseconds limit = std::chrono::seconds(2));

 protected:
  using Then = std::function<void(const QJsonValue&)>;

  /// Hands on the property's value, null while the player has none.
  void ask(QStringView property, Then then);
  /// Hands on what the command returned; a command that failed ends the task.
  void run(const QJsonArray& command, Then then);
  void finish(std::expected<QString, QString> outcome);
  void fail(const QString& reason) { finish(std::unexpected(reason)); }

  [[nodiscard]] MpvConnection& connection() const noexcept { return *connection_; }
  [[nodiscard]] bool isRunning() const noexcept { return done_ != nullptr; }

 private:
  std::unique_ptr<MpvConnection> connection_;
  Done done_;
  QTimer deadline_;
};

}  // namespace orvex
