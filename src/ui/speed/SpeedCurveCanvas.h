#pragma once

#include "ui/speed/CurveItem.h"

namespace orvex {

/// The still part of the curve editor: grid, handle lines and curve. The marker and the handles are
/// items of their own above it, so that their movement repaints nothing here.
class SpeedCurveCanvas : public orvex::CurveItem {
  Q_OBJECT
  QML_ELEMENT
  /// Where the curve begins, and the handle lines.
  Q_PROPERTY(QColor startColor MEMBER startColor_ NOTIFY styleChanged FINAL)
  /// What is drawn ends at corners of this radius, in points.
  Q_PROPERTY(double cornerRadius MEMBER cornerRadius_ NOTIFY styleChanged FINAL)

 public:
  using CurveItem::CurveItem;

  /// The point of the drawn curve at parameter `t` in 0…1, in the item's coordinates.
  Q_INVOKABLE QPointF pointAt(double t) const;
  void paint(QPainter* painter) override;

 private:
  QColor startColor_;
  double cornerRadius_ = 0;
};

}  // namespace orvex
