#include "base/FileUrl.h"

namespace orvex {

QUrl fileUrl(const QByteArray& path) {
  // The toolkit's own loses some: bytes that are not UTF-8, a few characters that it takes for
  // invalid, and two slashes at the beginning, taken for the name of another machine.
  const QUrl url = QUrl::fromLocalFile(QString::fromUtf8(path));
  if (filePath(url) == path) return url;
  return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"), QUrl::StrictMode);
}

QByteArray filePath(const QUrl& url) {
  if (!url.isLocalFile() || !(url.host().isEmpty() || url.host() == u"localhost")) return {};
  const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
  return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

QString fileText(const QUrl& url) {
  return QString::fromUtf8(filePath(url));
}

}  // namespace orvex
