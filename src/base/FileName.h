#pragma once

#include <QByteArray>

namespace orvex {

/// A file name without its extension, and the extension without its dot.
struct FileName {
  explicit FileName(QByteArrayView name);

  /// In small or capital ASCII letters, or both.
  [[nodiscard]] bool hasExtension(QByteArrayView wanted) const {
    return extension.compare(wanted, Qt::CaseInsensitive) == 0;
  }

  QByteArrayView stem;
  QByteArrayView extension;
};

/// The path of a folder as it is kept; "/" stays.
[[nodiscard]] QByteArray withoutEndSlashes(QByteArray path);

}  // namespace orvex
