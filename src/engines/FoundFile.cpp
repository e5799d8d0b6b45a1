#include "engines/FoundFile.h"

#include "base/FileName.h"
#include "base/Text.h"

namespace orvex {

QString FoundFile::id() const {
  return utf8Text(QByteArray(path).replace(root + '/', ""));
}

QString FoundFile::name() const {
  return utf8Text(FileName(QByteArrayView(path).sliced(path.lastIndexOf('/') + 1)).stem);
}

}  // namespace orvex
