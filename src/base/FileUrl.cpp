#include "base/FileUrl.h"

namespace orvex {

QUrl fileUrl(const QByteArray& path) {
  return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"), QUrl::StrictMode);
}

QByteArray filePath(const QUrl& url) {
  if (!url.isLocalFile() || !(url.host().isEmpty() || url.host() == u"localhost")) return {};
  // Not QUrl::toLocalFile, which has no text for bytes that are none.
  const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
  return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

}  // namespace orvex
