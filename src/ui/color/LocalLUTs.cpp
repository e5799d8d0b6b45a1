#include "ui/color/LocalLUTs.h"

#include "base/FileUrl.h"

namespace orvex {

QList<qsizetype> LocalLUTs::matching(QStringView search) const {
  return source_.matching(search);
}

LUTCatalog::Entry LocalLUTs::entry(qsizetype position) const {
  const LUTItem& item = source_.items[position];
  const QString caption =
      item.title ? *item.title + QStringLiteral(" • ") + item.dimension : item.dimension;
  return {item.name(), caption, item.fileURL(), fileUrl(item.root)};
}

}  // namespace orvex
