#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace orvex {

/// What a file was found to hold when it was read through.
struct FileTranscript {
  qint64 bytes = 0;
  /// 64 lower-case hexadecimal digits.
  QString sha256;

  friend bool operator==(const FileTranscript&, const FileTranscript&) = default;
};

/// Reads `file` to its end, handing every piece to `copy`. `path` is for the message of the
/// `FileError` that is thrown when it cannot be read.
[[nodiscard]] FileTranscript transcribe(
    const FileDescriptor& file, const QByteArray& path,
    const std::function<void(QByteArrayView)>& copy = [](QByteArrayView) {});

}  // namespace orvex
