#pragma once

#include "base/DescribedError.h"

#include <QByteArray>

namespace orvex {

/// The errno value `code` in Turkish, where people meet it with what to do about it; else in the
/// system's own words. Without a full stop.
[[nodiscard]] QString reasonOf(int code);

/// The system refused something that was asked of a file or folder.
class FileError final : public DescribedError {
 public:
  /// `what` says in Turkish what could not be done ("yazılamadı"), `path` is raw bytes, `code` an
  /// errno value.
  FileError(const QString& what, const QByteArray& path, int code);

  [[nodiscard]] int code() const noexcept { return code_; }

 private:
  int code_;
};

}  // namespace orvex
