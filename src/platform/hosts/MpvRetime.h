#pragma once

#include <QObject>
#include <QString>

#include <expected>
#include <functional>

namespace orvex {

/// The timeline commands on a running mpv, as far as it has a counterpart for them. Main thread
/// only.
class MpvRetime final : public QObject {
  Q_OBJECT

 public:
  /// What was done, or why nothing was, as a sentence in Turkish.
  using Done = std::function<void(std::expected<QString, QString>)>;

  explicit MpvRetime(const QString& socketPath);

  /// Performs one of `kTimelineActions` and calls `done` once, within two seconds, possibly before
  /// this returns; not at all if this object is destroyed first.
  void perform(const QString& action, Done done);

 private:
  QString socketPath_;
};

}  // namespace orvex
