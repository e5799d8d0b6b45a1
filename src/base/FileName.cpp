#include "base/FileName.h"

namespace orvex {

FileName::FileName(QByteArrayView name) : stem(name) {
  const qsizetype dot = name.lastIndexOf('.');
  if (dot <= 0) return;
  stem = name.first(dot);
  extension = name.sliced(dot + 1);
}

}  // namespace orvex
