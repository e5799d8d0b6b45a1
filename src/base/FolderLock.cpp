#include "base/FolderLock.h"

#include "base/FileError.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace orvex {
namespace {

// A wait inside the system could not be given up.
constexpr auto kPause = std::chrono::milliseconds(10);

}  // namespace

// The lock belongs to an opening of the folder, so each has one of its own.
FolderLock::FolderLock(const Directory& folder)
    : own_(::openat(folder.descriptor(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (!own_) throw FileError(QStringLiteral("açılamadı"), folder.path(), errno);
}

FolderLock::FolderLock(const Directory& folder, const std::stop_token& stop) : FolderLock(folder) {
  while (!isTaken(folder)) {
    if (stop.stop_requested()) throw Stopped();
    std::this_thread::sleep_for(kPause);
  }
}

std::optional<FolderLock> FolderLock::attempt(const Directory& folder) {
  FolderLock lock(folder);
  if (!lock.isTaken(folder)) return std::nullopt;
  return lock;
}

bool FolderLock::isTaken(const Directory& folder) const {
  if (::flock(own_.get(), LOCK_EX | LOCK_NB) == 0) return true;
  if (errno == EWOULDBLOCK || errno == EINTR) return false;
  throw FileError(QStringLiteral("kilitlenemedi"), folder.path(), errno);
}

}  // namespace orvex
