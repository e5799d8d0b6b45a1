#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace orvex {

/// The URL of a file. `path` is absolute and raw, and `filePath` gives it back unchanged: bytes
/// that are not UTF-8 are escapes in the URL.
[[nodiscard]] QUrl fileUrl(const QByteArray& path);

/// The raw bytes of a file URL's path, to open the file with; empty when `url` names no file of
/// this machine.
[[nodiscard]] QByteArray filePath(const QUrl& url);

/// The path as a person reads it: bytes that are not UTF-8 show as replacement characters.
[[nodiscard]] QString fileText(const QUrl& url);

}  // namespace orvex
