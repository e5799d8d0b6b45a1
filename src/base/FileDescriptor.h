#pragma once

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace orvex {

/// How files and folders that others made are opened for reading: a pipe is not waited for, and a
/// terminal does not become ours.
inline constexpr int kReadFile = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
inline constexpr int kReadFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

/// Owns a file descriptor.
class FileDescriptor {
 public:
  FileDescriptor() noexcept = default;
  explicit FileDescriptor(int fd) noexcept : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (fd_ >= 0) ::close(fd_);
  }

  [[nodiscard]] explicit operator bool() const noexcept { return fd_ >= 0; }
  [[nodiscard]] int get() const noexcept { return fd_; }
  /// Closes it now and returns what the system says to that: 0, or an errno value. Never tried
  /// again: the descriptor is gone either way.
  [[nodiscard]] int close() noexcept { return ::close(std::exchange(fd_, -1)) == 0 ? 0 : errno; }
  /// Gives the descriptor away.
  [[nodiscard]] int release() noexcept { return std::exchange(fd_, -1); }

 private:
  int fd_ = -1;
};

}  // namespace orvex
