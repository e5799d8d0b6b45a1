#pragma once

#include <QString>

#include <array>
#include <expected>

namespace orvex {

/// A speed ramp: the cubic Bézier curve from (0, 0) to (1, 1) with two free control points, each
/// coordinate in 0…1. x is normalised time, y normalised progress.
class SpeedCurve {
 public:
  /// The ramp that a new page shows.
  constexpr SpeedCurve() noexcept = default;
  /// Coordinates outside 0…1 are clamped, not-a-number counts as 0.
  SpeedCurve(double x1, double y1, double x2, double y2) noexcept;

  /// x1, y1, x2, y2.
  [[nodiscard]] constexpr const std::array<double, 4>& points() const noexcept { return points_; }
  /// The same curve with control point 0 or 1 at (x, y), clamped.
  [[nodiscard]] SpeedCurve withControlPoint(int index, double x, double y) const noexcept;

  /// "cubic-bezier(x1, y1, x2, y2)", each with two decimals and a point in every locale.
  [[nodiscard]] QString bezierCode() const;
  /// Reads what `bezierCode` writes, with any spacing, letter case and number of decimals. Values
  /// outside 0…1 are clamped. The error, in Turkish, says what is expected.
  [[nodiscard]] static std::expected<SpeedCurve, QString> fromBezierCode(const QString& text);

  struct Point {
    double x;
    double y;
  };
  /// The point at parameter `t` in 0…1.
  [[nodiscard]] Point pointAt(double t) const noexcept;
  /// The playing speed at parameter `t` in 0…1: the slope dy/dx in per cent, so that 100 is the
  /// original speed. Infinite where the curve is vertical.
  [[nodiscard]] double speedPercentAt(double t) const noexcept;

  struct SpeedRange {
    double minimumPercent;
    /// May be infinite.
    double maximumPercent;
  };
  /// The smallest and the largest speed along the curve, exactly.
  [[nodiscard]] SpeedRange speedRange() const noexcept;

  friend constexpr bool operator==(const SpeedCurve&, const SpeedCurve&) noexcept = default;

 private:
  std::array<double, 4> points_{0.2, 0.2, 0.8, 0.8};
};

}  // namespace orvex
