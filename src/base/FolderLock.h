#pragma once

#include "base/Directory.h"

#include <optional>
#include <stop_token>

namespace orvex {

/// Held by one at a time of all threads and processes that lock the same folder; says nothing to
/// those that do not. Goes with the process that holds it, however that ends. What fails throws
/// `FileError`.
class FolderLock {
 public:
  /// Waits for its turn. Throws `Stopped`.
  FolderLock(const Directory& folder, const std::stop_token& stop);
  /// Nothing while somebody else holds it.
  [[nodiscard]] static std::optional<FolderLock> attempt(const Directory& folder);

 private:
  explicit FolderLock(const Directory& folder);
  [[nodiscard]] bool isTaken(const Directory& folder) const;

  FileDescriptor own_;
};

}  // namespace orvex
