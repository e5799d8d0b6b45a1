#pragma once

#include <QPainterPath>

namespace orvex {

/// A rectangle whose corners of `radius` run into its sides gradually, without the jump in
/// curvature of a circular arc. Where a side is too short for that, the corner draws in, down to
/// the circular arc of a capsule.
[[nodiscard]] QPainterPath continuousRoundedRect(const QRectF& rect, double radius);

}  // namespace orvex
