#include "engines/FoundFile.h"

#include "base/FileUrl.h"

namespace orvex {

QString FoundFile::id() const {
  return QString::fromUtf8(QByteArray(path).replace(root + '/', ""));
}

QUrl FoundFile::fileURL() const {
  return fileUrl(path);
}

}  // namespace orvex
