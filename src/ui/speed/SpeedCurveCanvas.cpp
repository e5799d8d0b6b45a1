#include "ui/speed/SpeedCurveCanvas.h"

#include "ui/ContinuousCorners.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace orvex {
namespace {

QColor withOpacity(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

}  // namespace

QPointF SpeedCurveCanvas::pointAt(double t) const {
  const double s = 1 - t;
  return s * s * s * QPointF(0, height()) + 3 * s * s * t * controlPoint(0) +
         3 * s * t * t * controlPoint(1) + t * t * t * QPointF(width(), 0);
}

void SpeedCurveCanvas::paint(QPainter* painter) {
  const double w = width();
  const double h = height();
  const auto pen = [](const QBrush& brush, double width, Qt::PenCapStyle cap = Qt::FlatCap) {
    QPen made(brush, width, Qt::SolidLine, cap, Qt::MiterJoin);
    made.setMiterLimit(10);
    return made;
  };

  painter->setClipPath(continuousRoundedRect(QRectF(0, 0, w, h), cornerRadius_));

  QPainterPath grid;
  for (int i = 0; i <= 4; ++i) {
    grid.moveTo(w * i / 4, 0);
    grid.lineTo(w * i / 4, h);
    grid.moveTo(0, h * i / 4);
    grid.lineTo(w, h * i / 4);
  }
  painter->setPen(pen(withOpacity(Qt::white, 0.055F), 1));
  painter->drawPath(grid);

  QPainterPath handles({0, h});
  handles.lineTo(controlPoint(0));
  handles.moveTo(w, 0);
  handles.lineTo(controlPoint(1));
  painter->setPen(pen(withOpacity(startColor_, 0.52F), 1));
  painter->drawPath(handles);

  QPainterPath curve({0, h});
  curve.cubicTo(controlPoint(0), controlPoint(1), {w, 0});
  QLinearGradient colors(0, 0, w, 0);
  colors.setColorAt(0, startColor_);
  colors.setColorAt(1, color());
  painter->setPen(pen(colors, 3, Qt::RoundCap));
  painter->drawPath(curve);
}

}  // namespace orvex
