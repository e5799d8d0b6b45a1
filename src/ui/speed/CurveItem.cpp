#include "ui/speed/CurveItem.h"

namespace orvex {

CurveItem::CurveItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &CurveItem::styleChanged, this, [this] { update(); });
}

void CurveItem::setCurve(const QList<double>& curve) {
  if (curve.size() < 4) qFatal("a speed curve has four values, not %lld", qlonglong(curve.size()));
  if (curve == curve_) return;
  curve_ = curve;
  update();
  Q_EMIT curveChanged();
}

QPointF CurveItem::controlPoint(int index) const {
  return {width() * curve_[2 * index], height() * (1 - curve_[2 * index + 1])};
}

}  // namespace orvex
