#include "engines/FoundFile.h"

namespace orvex {

QString FoundFile::id() const {
  return QString::fromUtf8(QByteArray(path).replace(root + '/', ""));
}

}  // namespace orvex
