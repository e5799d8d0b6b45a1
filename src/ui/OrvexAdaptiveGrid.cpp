#include "ui/OrvexAdaptiveGrid.h"

#include "ui/OrvexColumns.h"

#include <algorithm>
#include <cmath>

namespace orvex {

OrvexAdaptiveGrid::OrvexAdaptiveGrid(QQuickItem* parent) : QQuickItem(parent) {
  setImplicitWidth(minimumWidth_);
}

void OrvexAdaptiveGrid::setMinimumWidth(double width) {
  if (minimumWidth_ == width) return;
  minimumWidth_ = width;
  setImplicitWidth(width);
  polish();
  Q_EMIT minimumWidthChanged();
}

void OrvexAdaptiveGrid::setMaximumColumns(int columns) {
  if (maximumColumns_ == columns) return;
  maximumColumns_ = columns;
  polish();
  Q_EMIT maximumColumnsChanged();
}

void OrvexAdaptiveGrid::setSpacing(double spacing) {
  if (spacing_ == spacing) return;
  spacing_ = spacing;
  polish();
  Q_EMIT spacingChanged();
}

void OrvexAdaptiveGrid::componentComplete() {
  QQuickItem::componentComplete();
  polish();
}

void OrvexAdaptiveGrid::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.width() != before.width()) polish();
}

void OrvexAdaptiveGrid::itemChange(ItemChange change, const ItemChangeData& value) {
  if (change == ItemChildAddedChange) {
    connect(value.item, &QQuickItem::implicitHeightChanged, this, &QQuickItem::polish);
    connect(value.item, &QQuickItem::implicitWidthChanged, this, &QQuickItem::polish);
    connect(value.item, &QQuickItem::visibleChanged, this, &QQuickItem::polish);
    polish();
  } else if (change == ItemChildRemovedChange) {
    value.item->disconnect(this);
    polish();
  }
  QQuickItem::itemChange(change, value);
}

QList<QQuickItem*> OrvexAdaptiveGrid::cells() const {
  QList<QQuickItem*> cells = childItems();
  cells.removeIf([](const QQuickItem* item) {
    return !item->isVisible() || (item->implicitWidth() <= 0 && item->implicitHeight() <= 0);
  });
  return cells;
}

void OrvexAdaptiveGrid::updatePolish() {
  if (!isComponentComplete() || width() <= 0) return;
  const OrvexColumns columns(width(), minimumWidth_, spacing_, maximumColumns_);
  const QList<QQuickItem*> all = cells();
  double y = 0;
  for (qsizetype first = 0; first < all.size(); first += columns.count()) {
    const auto row = all.mid(first, columns.count());
    double height = 0;
    for (int column = 0; column < row.size(); ++column) {
      row[column]->setPosition({columns.left(column), y});
      row[column]->setWidth(columns.width(column));
      height = std::max(height, row[column]->implicitHeight());
    }
    height = std::ceil(height);
    for (QQuickItem* cell : row) cell->setHeight(height);
    y += height + spacing_;
  }
  setImplicitHeight(all.isEmpty() ? 0 : y - spacing_);
  if (std::exchange(columns_, columns.count()) != columns.count()) Q_EMIT columnsChanged();
}

}  // namespace orvex
