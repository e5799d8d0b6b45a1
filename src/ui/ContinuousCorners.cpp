#include "ui/ContinuousCorners.h"

#include <algorithm>
#include <numbers>

namespace orvex {
namespace {

// How far along the sides a corner reaches, in radii.
constexpr double kReach = 1.5;

}  // namespace

QPainterPath continuousRoundedRect(const QRectF& rect, double radius) {
  const double shorter = std::min(rect.width(), rect.height()) / 2;
  const double r = std::clamp(radius, 0.0, shorter);
  QPainterPath path;
  if (r <= 0) {
    path.addRect(rect);
    return path;
  }
  const double reach = std::min(kReach * r, shorter);
  // One cubic per corner. Its handles are such that it passes its corner at the same distance as a
  // circle of radius r would; with a reach of r it is that circle.
  const double gap = r * (1 - 1 / std::numbers::sqrt2);
  const double inner = reach * (1 - (4 - 8 * gap / reach) / 3);
  const double l = rect.left(), t = rect.top(), rgt = rect.right(), b = rect.bottom();

  path.moveTo(l + reach, t);
  path.lineTo(rgt - reach, t);
  path.cubicTo(rgt - inner, t, rgt, t + inner, rgt, t + reach);
  path.lineTo(rgt, b - reach);
  path.cubicTo(rgt, b - inner, rgt - inner, b, rgt - reach, b);
  path.lineTo(l + reach, b);
  path.cubicTo(l + inner, b, l, b - inner, l, b - reach);
  path.lineTo(l, t + reach);
  path.cubicTo(l, t + inner, l + inner, t, l + reach, t);
  path.closeSubpath();
  return path;
}

}  // namespace orvex
