#pragma once

#include "base/FileUrl.h"

namespace orvex {

/// A file that a scan found. What can be made of its path is made when it is asked for: an
/// inventory keeps every item for as long as the panel lives, and a URL takes half a KiB.
struct FoundFile {
  /// Of the folder that was scanned, absolute, without a slash at its end, raw bytes. All items of
  /// a scan share it.
  QByteArray root;
  /// Absolute, raw bytes.
  QByteArray path;

  /// The path below the folder: without every occurrence of the root and a slash.
  [[nodiscard]] QString id() const;
  /// The file's name without its extension.
  [[nodiscard]] QString name() const;
  [[nodiscard]] QUrl fileURL() const { return fileUrl(path); }

  friend bool operator==(const FoundFile&, const FoundFile&) = default;
};

}  // namespace orvex
