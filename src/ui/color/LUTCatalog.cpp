#include "ui/color/LUTCatalog.h"

#include "base/FileUrl.h"

namespace orvex {

QVariant LUTCatalog::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Entry found = entry(position(index));
  switch (role) {
    case Qt::DisplayRole:
    case NameRole:
      return found.name;
    case CaptionRole:
      return found.caption;
    case FileRole:
      return found.file;
    case RootRole:
      return found.root;
    case PathRole:
      return fileText(found.file);
  }
  return {};
}

QHash<int, QByteArray> LUTCatalog::roleNames() const {
  return {{NameRole, "name"},
          {CaptionRole, "caption"},
          {FileRole, "file"},
          {RootRole, "root"},
          {PathRole, "path"}};
}

}  // namespace orvex
