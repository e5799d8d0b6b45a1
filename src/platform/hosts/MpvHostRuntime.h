#pragma once

#include "platform/HostRuntime.h"

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>

#include <memory>

namespace orvex {

class MpvHost;

/// Looks for an mpv at a socket: at once, and whenever something changes in the socket's folder or,
/// while that does not exist, in the nearest folder above that does. Nothing runs in between.
class MpvHostRuntime final : public HostRuntime {
  Q_OBJECT

 public:
  /// `socketPath` is absolute.
  explicit MpvHostRuntime(const QString& socketPath);
  ~MpvHostRuntime() override;

  /// The player, once its state is known and until it goes.
  [[nodiscard]] std::shared_ptr<FCPXHost> hostSingleton() override;

 private:
  void look();
  void tryToConnect();
  void watchFolder();
  void handleLost();

  QString socketPath_;
  QFileSystemWatcher watcher_;
  QTimer retry_;
  int triesLeft_ = 0;
  std::shared_ptr<MpvHost> host_;
  bool ready_ = false;
};

}  // namespace orvex
