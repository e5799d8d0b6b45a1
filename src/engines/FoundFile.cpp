#include "engines/FoundFile.h"

#include "base/FileName.h"

namespace orvex {

QString FoundFile::id() const {
  return QString::fromUtf8(QByteArray(path).replace(root + '/', ""));
}

QString FoundFile::name() const {
  return QString::fromUtf8(FileName(QByteArrayView(path).sliced(path.lastIndexOf('/') + 1)).stem);
}

}  // namespace orvex
