#include "ui/speed/SpeedCurveDisc.h"

#include "ui/ContinuousCorners.h"
#include "ui/DiscProfile.h"

#include <QPainter>
#include <QRadialGradient>

namespace orvex {
namespace {

QRadialGradient glowOf(const QPointF& centre, double radius, double deviation, QColor color) {
  constexpr int kSteps = 16;
  const DiscProfile profile(radius, deviation);
  const double reach = DiscProfile::reach(radius, deviation);
  const float opacity = color.alphaF();
  QRadialGradient glow(centre, reach);
  for (int i = 0; i <= kSteps; ++i) {
    const double part = static_cast<double>(i) / kSteps;
    color.setAlphaF(opacity * profile.at(static_cast<float>(part * reach)));
    glow.setColorAt(part, color);
  }
  return glow;
}

}  // namespace

SpeedCurveDisc::SpeedCurveDisc(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &SpeedCurveDisc::styleChanged, this, [this] { update(); });
}

void SpeedCurveDisc::paint(QPainter* painter) {
  const QPointF centre = boundingRect().center();
  painter->setClipPath(continuousRoundedRect(shape_, cornerRadius_));
  if (glowRadius_ > 0)
    painter->fillRect(boundingRect(), glowOf(centre, radius_, glowRadius_ / 2, glowColor_));
  painter->setPen(outlineWidth_ > 0 ? QPen(outlineColor_, outlineWidth_) : Qt::NoPen);
  painter->setBrush(color_);
  painter->drawEllipse(centre, radius_, radius_);
}

}  // namespace orvex
