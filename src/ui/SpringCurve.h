#pragma once

namespace orvex {

/// A damped spring, solved exactly:  x'' = −(2π/r)² (x − to) − (4πd/r) x'.
/// `response` r is the period in seconds of the same spring without damping, above 0;
/// `dampingFraction` d is at least 0 and below 1: the spring overshoots.
struct SpringCurve {
  struct Point {
    double value;
    /// Per second.
    double velocity;
  };

  double response;
  double dampingFraction;

  /// Where a spring that is at `start` now is in `seconds`, on its way to `to`.
  [[nodiscard]] Point at(double seconds, Point start, double to) const noexcept;
  /// Whether a spring at `point` stays within `precision` of `to` for good, as far as can be told
  /// from its energy.
  [[nodiscard]] bool settled(Point point, double to, double precision) const noexcept;
};

}  // namespace orvex
