#include "ui/DiscProfile.h"

#include <algorithm>
#include <cmath>

namespace orvex {
namespace {

// e^−x I₀(x), the modified Bessel function in the form that does not overflow: Abramowitz and
// Stegun, 9.8.1 and 9.8.2; exact to 2·10⁻⁷.
double besselI0e(double x) {
  if (x < 3.75) {
    const double t = (x / 3.75) * (x / 3.75);
    const double sum =
        1 +
        t * (3.5156229 +
             t * (3.0899424 + t * (1.2067492 + t * (0.2659732 + t * (0.0360768 + t * 0.0045813)))));
    return std::exp(-x) * sum;
  }
  const double t = 3.75 / x;
  const double sum =
      0.39894228 +
      t * (0.01328592 +
           t * (0.00225319 +
                t * (-0.00157565 +
                     t * (0.00916281 +
                          t * (-0.02057706 +
                               t * (0.02635537 + t * (-0.01647633 + t * 0.00392377)))))));
  return sum / std::sqrt(x);
}

// f(r) = ∫₀ᴿ (t/σ²) e^(−(r−t)²/2σ²) I₀e(rt/σ²) dt, by Simpson's rule.
double blurredDisc(double r, double radius, double deviation) {
  constexpr int kSteps = 256;
  const double variance = deviation * deviation;
  const double step = radius / kSteps;
  double sum = 0;
  for (int i = 0; i <= kSteps; ++i) {
    const double t = i * step;
    const double weight = i == 0 || i == kSteps ? 1 : i % 2 == 1 ? 4 : 2;
    sum += weight * t / variance * std::exp(-(r - t) * (r - t) / (2 * variance)) *
           besselI0e(r * t / variance);
  }
  return sum * step / 3;
}

}  // namespace

DiscProfile::DiscProfile(double radius, double deviation)
    : stepsPerUnit_(static_cast<float>(kSteps / reach(radius, deviation))) {
  const double end = reach(radius, deviation);
  const double last = blurredDisc(end, radius, deviation);
  for (std::size_t i = 0; i < table_.size(); ++i) {
    const double r = end * static_cast<double>(i) / kSteps;
    // What is left at the reach is taken off everywhere, so that the picture has no edge.
    table_[i] = static_cast<float>(std::max(0.0, blurredDisc(r, radius, deviation) - last));
  }
}

}  // namespace orvex
