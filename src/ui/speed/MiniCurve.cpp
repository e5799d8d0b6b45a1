#include "ui/speed/MiniCurve.h"

#include <QPainter>
#include <QPainterPath>

namespace orvex {

void MiniCurve::paint(QPainter* painter) {
  constexpr double kInset = 3;
  QPainterPath path({kInset, height() - kInset});
  path.cubicTo(controlPoint(0), controlPoint(1), {width() - kInset, kInset});
  painter->setPen(QPen(color(), 2, Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin));
  painter->drawPath(path);
}

}  // namespace orvex
