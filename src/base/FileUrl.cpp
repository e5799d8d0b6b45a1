#include "base/FileUrl.h"

namespace orvex {

QUrl fileUrl(const QByteArray& path) {
  return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"), QUrl::StrictMode);
}

QByteArray filePath(const QUrl& url) {
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

QString fileText(const QUrl& url) {
  return QString::fromUtf8(filePath(url));
}

}  // namespace orvex
