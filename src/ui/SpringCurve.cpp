#include "ui/SpringCurve.h"

#include <cmath>
#include <numbers>

namespace orvex {
namespace {

// Below this distance from critical damping the two other solutions divide by almost nothing.
constexpr double kCriticalBand = 1e-6;

double angularFrequency(double response) noexcept {
  return 2 * std::numbers::pi / response;
}

}  // namespace

SpringCurve::Point SpringCurve::at(double seconds, Point start, double to) const noexcept {
  const double omega = angularFrequency(response);
  const double x = start.value - to;
  const double v = start.velocity;
  const double damping = dampingFraction * omega;
  const double discriminant = dampingFraction * dampingFraction - 1;

  if (std::abs(discriminant) < kCriticalBand) {
    const double slope = v + omega * x;
    const double decay = std::exp(-omega * seconds);
    const double offset = (x + slope * seconds) * decay;
    return {to + offset, slope * decay - omega * offset};
  }
  if (discriminant < 0) {
    const double frequency = omega * std::sqrt(-discriminant);
    const double decay = std::exp(-damping * seconds);
    const double sine = (v + damping * x) / frequency;
    const double c = std::cos(frequency * seconds);
    const double s = std::sin(frequency * seconds);
    const double offset = decay * (x * c + sine * s);
    return {to + offset, decay * frequency * (sine * c - x * s) - damping * offset};
  }
  const double root = omega * std::sqrt(discriminant);
  const double fast = -damping - root;
  const double slow = -damping + root;
  const double slowPart = (v - fast * x) / (slow - fast);
  const double fastPart = x - slowPart;
  const double slowOffset = slowPart * std::exp(slow * seconds);
  const double fastOffset = fastPart * std::exp(fast * seconds);
  return {to + slowOffset + fastOffset, slow * slowOffset + fast * fastOffset};
}

bool SpringCurve::settled(Point point, double to, double precision) const noexcept {
  // Kinetic and potential energy together bound every later swing. Not-a-number counts as settled.
  return !(std::hypot(point.value - to, point.velocity / angularFrequency(response)) >= precision);
}

}  // namespace orvex
