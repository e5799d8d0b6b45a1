#pragma once

#include <QByteArray>
#include <QUrl>

namespace orvex {

/// The URL of a file of this machine, from the raw bytes of its absolute path. Bytes that are no
/// text in any encoding stay what they are.
[[nodiscard]] QUrl fileUrl(const QByteArray& path);

/// The inverse of `fileUrl`: the raw bytes of the path; empty when `url` names no file of this
/// machine.
[[nodiscard]] QByteArray filePath(const QUrl& url);

}  // namespace orvex
