#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>

#include <optional>

namespace orvex {

/// The contents of the regular file at `path` below the open folder `folder` (or below the working
/// directory, AT_FDCWD). Nothing when it is missing, no regular file (a FIFO or device is not
/// waited for), larger than `maximum` bytes or cannot be read.
[[nodiscard]] std::optional<QByteArray> readSmallFile(int folder, const QByteArray& path,
                                                      qsizetype maximum);
/// The same of an open file.
[[nodiscard]] std::optional<QByteArray> readSmallFile(const FileDescriptor& file,
                                                      qsizetype maximum);

}  // namespace orvex
