#pragma once

#include <QQuickItem>

#include <limits>

namespace orvex {

/// As many equal columns as fit, or fewer where fewer are wanted, filled row by row. Each row is as
/// high as its tallest cell. Children that are hidden or have no implicit size take no cell.
class OrvexAdaptiveGrid : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  /// Of a column, in points.
  Q_PROPERTY(
      double minimumWidth READ minimumWidth WRITE setMinimumWidth NOTIFY minimumWidthChanged FINAL)
  /// At least 1.
  Q_PROPERTY(int maximumColumns READ maximumColumns WRITE setMaximumColumns NOTIFY
                 maximumColumnsChanged FINAL)
  /// Between columns and between rows, in points.
  Q_PROPERTY(double spacing READ spacing WRITE setSpacing NOTIFY spacingChanged FINAL)
  Q_PROPERTY(int columns READ columns NOTIFY columnsChanged FINAL)

 public:
  explicit OrvexAdaptiveGrid(QQuickItem* parent = nullptr);

  [[nodiscard]] double minimumWidth() const noexcept { return minimumWidth_; }
  void setMinimumWidth(double width);
  [[nodiscard]] int maximumColumns() const noexcept { return maximumColumns_; }
  void setMaximumColumns(int columns);
  [[nodiscard]] double spacing() const noexcept { return spacing_; }
  void setSpacing(double spacing);
  /// At least 1.
  [[nodiscard]] int columns() const noexcept { return columns_; }

 Q_SIGNALS:
  void minimumWidthChanged();
  void maximumColumnsChanged();
  void spacingChanged();
  void columnsChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& value) override;
  void updatePolish() override;

 private:
  [[nodiscard]] QList<QQuickItem*> cells() const;

  double minimumWidth_ = 160;
  int maximumColumns_ = std::numeric_limits<int>::max();
  double spacing_ = 10;
  int columns_ = 1;
};

}  // namespace orvex
