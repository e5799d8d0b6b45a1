#include "ui/SpringCurve.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace orvex {
namespace {

using Point = SpringCurve::Point;

// Solves the equation of motion by small steps, independently of the closed form.
Point integrate(const SpringCurve& curve, double seconds, Point point, double to) {
  const double stiffness = std::pow(2 * std::numbers::pi / curve.response, 2);
  const double damping = 4 * std::numbers::pi * curve.dampingFraction / curve.response;
  constexpr int kSteps = 20000;
  const double h = seconds / kSteps;
  const auto pull = [&](double x, double v) { return -stiffness * (x - to) - damping * v; };
  for (int i = 0; i < kSteps; ++i) {
    const double v1 = point.velocity, a1 = pull(point.value, v1);
    const double v2 = v1 + h / 2 * a1, a2 = pull(point.value + h / 2 * v1, v2);
    const double v3 = v1 + h / 2 * a2, a3 = pull(point.value + h / 2 * v2, v3);
    const double v4 = v1 + h * a3, a4 = pull(point.value + h * v3, v4);
    point.value += h / 6 * (v1 + 2 * v2 + 2 * v3 + v4);
    point.velocity += h / 6 * (a1 + 2 * a2 + 2 * a3 + a4);
  }
  return point;
}

TEST(SpringCurve, FollowsTheEquationOfMotion) {
  const SpringCurve curves[] = {{0.28, 0.78}, {0.34, 0.8},     {0.36, 0.1},
                                {0.3, 1},     {0.3, 1.000001}, {0.42, 1.7}};
  for (const SpringCurve& curve : curves) {
    SCOPED_TRACE(curve.dampingFraction);
    for (const Point start : {Point{0, 0}, Point{0.4, 6}, Point{1.2, -9}}) {
      for (const double seconds : {0.0, 0.03, 0.11, 0.4}) {
        const Point exact = curve.at(seconds, start, 1);
        const Point stepped = integrate(curve, seconds, start, 1);
        EXPECT_NEAR(exact.value, stepped.value, 1e-6) << seconds;
        EXPECT_NEAR(exact.velocity, stepped.velocity, 1e-4) << seconds;
      }
    }
    // What is settled stays so.
    double seconds = 0;
    while (!curve.settled(curve.at(seconds, {0, 0}, 1), 1, 0.001)) {
      seconds += 0.01;
      ASSERT_LT(seconds, 10);
    }
    for (double later = seconds; later < seconds + 1; later += 0.01)
      EXPECT_NEAR(curve.at(later, {0, 0}, 1).value, 1, 0.001);
  }
}

TEST(SpringCurve, AnImpossibleSpringIsSettledRatherThanEndless) {
  const SpringCurve curve{0, 0.8};
  EXPECT_TRUE(curve.settled(curve.at(0.1, {0, 0}, 1), 1, 0.001));
}

}  // namespace
}  // namespace orvex
