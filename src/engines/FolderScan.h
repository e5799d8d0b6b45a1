#pragma once

#include "base/FileName.h"
#include "base/FileTree.h"
#include "engines/Inventory.h"

#include <functional>

namespace orvex {

/// What the scans of all inventories share: the root, the walk over it, names made of paths.
class FolderScan {
 public:
  /// `root` is the absolute path of the folder. Throws `DescribedError` when it cannot be asked
  /// for: a root that is there and cannot be read, or is no folder, has no entries.
  FolderScan(QByteArray root, const WorkControl& control);

  /// Calls `visit` for every entry below the root and reports how many it was. Returns how many
  /// folders had to be passed over. Throws `Stopped`.
  qint64 walk(const FileTree::Visitor& visit) const;

  void throwIfStopped() const;

  /// Without a slash at its end, unless it is the top of the file system.
  [[nodiscard]] const QByteArray& root() const noexcept { return root_; }
  /// The absolute path of an entry.
  [[nodiscard]] QByteArray absolute(QByteArrayView path) const;

 private:
  QByteArray root_;
  const WorkControl& control_;
};

/// Puts items in the localized order of their names. `rank` comes before the name; what is the same
/// in both is ordered by `path`, so that a scan gives one result on every file system.
template <typename Item>
void sortByName(
    QList<Item>& items, const Collation& collation,
    const std::function<int(const Item&)>& rank = [](const Item&) { return 0; }) {
  std::ranges::sort(items, {}, &Item::path);
  QList<QString> names;
  names.reserve(items.size());
  for (const Item& item : items) names.append(std::invoke(&Item::name, item));
  QList<qsizetype> order = collation.sorted(names);
  std::ranges::stable_sort(order, {}, [&](qsizetype i) { return rank(items[i]); });
  QList<Item> sorted;
  sorted.reserve(items.size());
  for (const qsizetype i : order) sorted.append(std::move(items[i]));
  items = std::move(sorted);
}

}  // namespace orvex
