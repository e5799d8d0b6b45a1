#include "ui/SpringCurve.h"

#include <cmath>
#include <numbers>

namespace orvex {
namespace {

double angularFrequency(double response) noexcept {
  return 2 * std::numbers::pi / response;
}

}  // namespace

SpringCurve::Point SpringCurve::at(double seconds, Point start, double to) const noexcept {
  const double omega = angularFrequency(response);
  const double x = start.value - to;
  const double v = start.velocity;
  const double damping = dampingFraction * omega;
  const double frequency = omega * std::sqrt(1 - dampingFraction * dampingFraction);
  const double decay = std::exp(-damping * seconds);
  const double sine = (v + damping * x) / frequency;
  const double c = std::cos(frequency * seconds);
  const double s = std::sin(frequency * seconds);
  const double offset = decay * (x * c + sine * s);
  return {to + offset, decay * frequency * (sine * c - x * s) - damping * offset};
}

bool SpringCurve::settled(Point point, double to, double precision) const noexcept {
  // Kinetic and potential energy together bound every later swing. Not-a-number counts as settled.
  return !(std::hypot(point.value - to, point.velocity / angularFrequency(response)) >= precision);
}

}  // namespace orvex
