#include "ui/library/LibraryModel.h"

#include <algorithm>

namespace orvex {

void LibraryModel::setSearch(const QString& search) {
  if (search_ == search) return;
  search_ = search;
  filter();
  Q_EMIT searchChanged();
}

int LibraryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count();
}

void LibraryModel::replace(const std::function<void()>& take) {
  ++generation_;
  show(matching(search_), take);
}

void LibraryModel::show(QList<qsizetype> rows, const std::function<void()>& take) {
  const qsizetype before = rows_.size();
  const qsizetype after = rows.size();
  const qsizetype kept = std::min(before, after);
  const auto differing =
      std::mismatch(rows_.cbegin(), rows_.cbegin() + kept, rows.cbegin()).first - rows_.cbegin();
  const qsizetype first = take ? 0 : differing;
  if (!take && before == after && first == kept) return;

  // What leaves or joins the rows does so while the others are as they were or as they will be.
  if (after < before) {
    beginRemoveRows({}, static_cast<int>(after), static_cast<int>(before - 1));
    rows_.resize(after);
    endRemoveRows();
  }
  if (take) take();
  rows_ = rows.first(kept);
  if (first < kept)
    Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(kept - 1)));
  if (after > before) {
    beginInsertRows({}, static_cast<int>(before), static_cast<int>(after - 1));
    rows_ = std::move(rows);
    endInsertRows();
  }
  Q_EMIT listChanged();
}

}  // namespace orvex
