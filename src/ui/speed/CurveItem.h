#pragma once

#include <QColor>
#include <QList>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// What the drawings of a speed curve have in common: the curve, and painting only when it changes.
class CurveItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ANONYMOUS
  /// x1, y1, x2, y2. Fewer than four values are a programming error and end the program; values
  /// beyond 0…1 are drawn as they are, so that a spring may overshoot.
  Q_PROPERTY(QList<double> curve READ curve WRITE setCurve NOTIFY curveChanged FINAL)
  /// Of the curve; a curve in two colours runs from `startColor` on the left to this on the right.
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY styleChanged FINAL)

 public:
  explicit CurveItem(QQuickItem* parent = nullptr);

  [[nodiscard]] const QList<double>& curve() const noexcept { return curve_; }
  void setCurve(const QList<double>& curve);

 Q_SIGNALS:
  void curveChanged();
  void styleChanged();

 protected:
  /// Control point `index` (0 or 1) in the item's coordinates; y grows upwards in the curve and
  /// downwards here.
  [[nodiscard]] QPointF controlPoint(int index) const;
  [[nodiscard]] const QColor& color() const noexcept { return color_; }

 private:
  QList<double> curve_{0.2, 0.2, 0.8, 0.8};
  QColor color_;
};

}  // namespace orvex
