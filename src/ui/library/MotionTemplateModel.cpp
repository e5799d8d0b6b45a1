#include "ui/library/MotionTemplateModel.h"

namespace orvex {

void MotionTemplateModel::setKind(int kind) {
  if (kind_ == kind) return;
  kind_ = kind;
  filter();
  Q_EMIT kindChanged();
}

QList<qsizetype> MotionTemplateModel::matching(QStringView search) const {
  QList<qsizetype> found = source_.matching(search);
  if (kind_ == MotionTemplateKindNames::Any) return found;
  const QList<MotionTemplateItem> all = source_.latest();
  found.removeIf([&](qsizetype i) { return static_cast<int>(all[i].kind) != kind_; });
  return found;
}

QVariant MotionTemplateModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const MotionTemplateItem& template_ = source_.items[position(index)];
  switch (role) {
    case Qt::DisplayRole:
    case Name:
      return template_.name();
    case Kind:
      return static_cast<int>(template_.kind);
    case Category:
      return template_.category();
    case FileURL:
      return template_.fileURL();
    case PreviewURL:
      return template_.previewURL().value_or(QUrl());
    default:
      return {};
  }
}

QHash<int, QByteArray> MotionTemplateModel::roleNames() const {
  return {{Name, "name"},
          {Kind, "kind"},
          {Category, "category"},
          {FileURL, "fileURL"},
          {PreviewURL, "previewURL"}};
}

}  // namespace orvex
