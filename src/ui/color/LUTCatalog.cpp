#include "ui/color/LUTCatalog.h"

#include "base/FileUrl.h"

#include <algorithm>

namespace orvex {

void LUTCatalog::setSearch(const QString& search) {
  if (search_ == search) return;
  search_ = search;
  Q_EMIT searchChanged();
  show(find(search_));
}

void LUTCatalog::refresh() {
  show(find(search_));
  Q_EMIT totalChanged();
}

void LUTCatalog::show(const QList<qsizetype>& positions) {
  const auto before = static_cast<int>(positions_.size());
  const auto now = static_cast<int>(positions.size());
  if (now > before) {
    beginInsertRows({}, before, now - 1);
    positions_ = positions;
    endInsertRows();
  } else if (now < before) {
    beginRemoveRows({}, now, before - 1);
    positions_ = positions;
    endRemoveRows();
  } else {
    positions_ = positions;
  }
  if (const int kept = std::min(now, before); kept > 0)
    Q_EMIT dataChanged(index(0), index(kept - 1));
  if (now != before) Q_EMIT countChanged();
}

int LUTCatalog::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

QVariant LUTCatalog::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Entry found = entry(positions_.at(index.row()));
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
