#include "platform/hosts/MpvHostRuntime.h"

#include "platform/hosts/MpvHost.h"

#include <QDir>
#include <QFileInfo>

#include <chrono>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// A player makes its socket's file a moment before it listens; it never takes a second.
constexpr int kTries = 6;
constexpr auto kFirstPause = 15ms;

QString nearestExistingFolder(const QString& path) {
  QString folder = QFileInfo(path).absolutePath();
  while (!QDir(folder).exists() && !QDir(folder).isRoot()) folder = QFileInfo(folder).path();
  return folder;
}

}  // namespace

MpvHostRuntime::MpvHostRuntime(const QString& socketPath) : socketPath_(socketPath) {
  retry_.setSingleShot(true);
  connect(&retry_, &QTimer::timeout, this, &MpvHostRuntime::tryToConnect);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &MpvHostRuntime::look);
  look();
}

MpvHostRuntime::~MpvHostRuntime() = default;

std::shared_ptr<FCPXHost> MpvHostRuntime::hostSingleton() {
  return ready_ ? host_ : nullptr;
}

void MpvHostRuntime::look() {
  watchFolder();
  triesLeft_ = kTries;
  tryToConnect();
}

// The folder may be made between looking for it and watching what is above it.
void MpvHostRuntime::watchFolder() {
  for (QString folder; folder != nearestExistingFolder(socketPath_);) {
    folder = nearestExistingFolder(socketPath_);
    if (watcher_.directories() == QStringList{folder}) continue;
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    watcher_.addPath(folder);
  }
}

void MpvHostRuntime::tryToConnect() {
  if (host_ || triesLeft_ == 0) return;
  --triesLeft_;
  auto connection = MpvConnection::open(socketPath_);
  if (!connection) {
    if (triesLeft_ > 0) retry_.start(kFirstPause * (1 << (kTries - 1 - triesLeft_)));
    return;
  }
  retry_.stop();
  host_ = std::make_shared<MpvHost>(std::move(*connection));
  connect(host_.get(), &MpvHost::ready, this, [this] {
    ready_ = true;
    Q_EMIT hostSingletonChanged();
  });
  // Queued: the host may be destroyed then, which it must not be from within its own signal.
  connect(host_.get(), &MpvHost::lost, this, &MpvHostRuntime::handleLost, Qt::QueuedConnection);
}

void MpvHostRuntime::handleLost() {
  host_.reset();
  if (std::exchange(ready_, false)) {
    Q_EMIT hostSingletonChanged();
    look();
  } else {
    // Whatever listens there is no player. It may be replaced by one; a change in the folder tells.
    tryToConnect();
  }
}

}  // namespace orvex
