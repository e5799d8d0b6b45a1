#include "base/FileUrl.h"

namespace orvex {

QUrl fileUrl(const QByteArray& path) {
  // Two slashes at the beginning would be taken for the name of another machine.
  if (path.isValidUtf8() && !path.startsWith("//"))
    return QUrl::fromLocalFile(QString::fromUtf8(path));
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
