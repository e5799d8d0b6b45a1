#pragma once

#include "base/Directory.h"

#include <optional>

namespace orvex {

/// A file of the published tree, open for reading.
struct PublishedFile {
  FileDescriptor file;
  qint64 bytes = 0;
  /// Nanoseconds since 1970.
  qint64 modified = 0;

  /// Opens what the path of an address names below `root`: regular files only, nothing hidden,
  /// nothing through a link. `path` begins with "/" and is still percent-encoded.
  [[nodiscard]] static std::optional<PublishedFile> open(const Directory& root,
                                                         const QByteArray& path);

  /// Tells these bytes from those that were or will be under the same name: files are only ever
  /// replaced whole.
  [[nodiscard]] QByteArray entityTag() const;
};

/// The media type of a file called `name`.
[[nodiscard]] QByteArray mediaType(QByteArrayView name);

}  // namespace orvex
