#include "base/FileName.h"

namespace orvex {

FileName::FileName(QByteArrayView name) : stem(name) {
  const qsizetype dot = name.lastIndexOf('.');
  if (dot <= 0) return;
  stem = name.first(dot);
  extension = name.sliced(dot + 1);
}

QByteArray withoutEndSlashes(QByteArray path) {
  while (path.size() > 1 && path.endsWith('/')) path.chop(1);
  return path;
}

}  // namespace orvex
