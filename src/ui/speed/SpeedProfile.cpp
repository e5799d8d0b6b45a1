#include "ui/speed/SpeedProfile.h"

#include "speed/SpeedCurve.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace orvex {
namespace {

// The drawing reaches at least this far up, so that a nearly even ramp looks even, and at most this
// far, so that a steep end does not flatten the rest; in per cent.
constexpr double kSmallestTop = 200;
constexpr double kLargestTop = 500;

QString percentText(double percent) {
  if (!std::isfinite(percent)) return QStringLiteral("%∞");
  return QStringLiteral("%%1").arg(std::llround(percent));
}

// A spring may carry the drawn points past 0…1; a ramp exists only within.
SpeedCurve rampOf(const QList<double>& curve) {
  return {curve[0], curve[1], curve[2], curve[3]};
}

}  // namespace

QString SpeedProfile::minimumText() const {
  return percentText(rampOf(curve()).speedRange().minimumPercent);
}

QString SpeedProfile::maximumText() const {
  return percentText(rampOf(curve()).speedRange().maximumPercent);
}

void SpeedProfile::paint(QPainter* painter) {
  const SpeedCurve ramp = rampOf(curve());
  const double top = std::clamp(ramp.speedRange().maximumPercent * 1.1, kSmallestTop, kLargestTop);
  const auto y = [&](double percent) { return height() * (1 - std::min(percent, top) / top); };

  QColor rule = Qt::white;
  rule.setAlphaF(0.16F);
  painter->setPen(QPen(rule, 1, Qt::DashLine));
  painter->drawLine(QPointF(0, y(100)), QPointF(width(), y(100)));

  constexpr int kSteps = 128;
  QPainterPath line;
  for (int i = 0; i <= kSteps; ++i) {
    const double t = static_cast<double>(i) / kSteps;
    const QPointF point(width() * ramp.pointAt(t).x, y(ramp.speedPercentAt(t)));
    if (i == 0)
      line.moveTo(point);
    else
      line.lineTo(point);
  }
  QPainterPath area = line;
  area.lineTo(width(), height());
  area.lineTo(0, height());
  area.closeSubpath();
  QColor near = color();
  QColor far = near;
  near.setAlphaF(0.28F);
  far.setAlphaF(0.02F);
  QLinearGradient fill(0, 0, 0, height());
  fill.setColorAt(0, near);
  fill.setColorAt(1, far);
  painter->fillPath(area, fill);
  painter->setPen(QPen(color(), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter->drawPath(line);
}

}  // namespace orvex
