#pragma once

#include <QByteArray>
#include <QString>

namespace orvex {

/// Puts `bytes` into the file `path`, for what can be made again: readers see the old or the new
/// contents, whole, but a power cut may lose both. Makes the folders above it. The file is readable
/// by the user alone; a link in its place is replaced, not followed. Returns whether it worked.
[[nodiscard]] bool replaceFile(const QString& path, const QByteArray& bytes);

}  // namespace orvex
