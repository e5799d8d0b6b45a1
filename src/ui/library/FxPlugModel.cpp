#include "ui/library/FxPlugModel.h"

namespace orvex {

QVariant FxPlugModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const FxPlugItem& bundle = source_.items[position(index)];
  switch (role) {
    case Qt::DisplayRole:
    case Name:
      return bundle.name;
    case BundleIdentifier:
      return bundle.bundleIdentifier;
    case Version:
      return bundle.version;
    case FileURL:
      return bundle.fileURL();
    default:
      return {};
  }
}

QHash<int, QByteArray> FxPlugModel::roleNames() const {
  return {{Name, "name"},
          {BundleIdentifier, "bundleIdentifier"},
          {Version, "version"},
          {FileURL, "fileURL"}};
}

}  // namespace orvex
