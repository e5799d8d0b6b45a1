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

struct Case {
  const char* name;
  double response;
  double dampingFraction;
};

void PrintTo(const Case& spring, std::ostream* stream) {
  *stream << spring.response << " s, " << spring.dampingFraction;
}

class Springs : public testing::TestWithParam<Case> {
 protected:
  SpringCurve curve{GetParam().response, GetParam().dampingFraction};
};

TEST_P(Springs, FollowTheEquationOfMotion) {
  for (const Point start : {Point{0, 0}, Point{0.4, 6}, Point{1.2, -9}}) {
    for (const double seconds : {0.0, 0.03, 0.11, 0.4}) {
      const Point exact = curve.at(seconds, start, 1);
      const Point stepped = integrate(curve, seconds, start, 1);
      EXPECT_NEAR(exact.value, stepped.value, 1e-6) << seconds;
      EXPECT_NEAR(exact.velocity, stepped.velocity, 1e-4) << seconds;
    }
  }
}

TEST_P(Springs, AreIndependentOfTheStep) {
  const Point whole = curve.at(0.24, {0, 2}, 1);
  Point stepped{0, 2};
  for (const double step : {0.1, 0.016, 0.004, 0.05, 0.07}) stepped = curve.at(step, stepped, 1);
  EXPECT_NEAR(stepped.value, whole.value, 1e-9);
  EXPECT_NEAR(stepped.velocity, whole.velocity, 1e-9);
}

TEST_P(Springs, StaySettled) {
  constexpr double kPrecision = 0.001;
  Point point{0, 0};
  double seconds = 0;
  while (!curve.settled(point, 1, kPrecision)) {
    seconds += 0.01;
    ASSERT_LT(seconds, 10);
    point = curve.at(seconds, {0, 0}, 1);
  }
  for (double later = seconds; later < seconds + 1; later += 0.01)
    EXPECT_NEAR(curve.at(later, {0, 0}, 1).value, 1, kPrecision);
}

INSTANTIATE_TEST_SUITE_P(Damping, Springs,
                         testing::Values(Case{"Lively", 0.28, 0.78}, Case{"Calm", 0.34, 0.8},
                                         Case{"HardlyDamped", 0.36, 0.1}, Case{"Critical", 0.3, 1},
                                         Case{"AllButCritical", 0.3, 1.000001},
                                         Case{"Overdamped", 0.42, 1.7}),
                         [](const testing::TestParamInfo<Case>& test) { return test.param.name; });

TEST(SpringCurve, OvershootsOnlyBelowCriticalDamping) {
  const auto highest = [](double dampingFraction) {
    const SpringCurve curve{0.28, dampingFraction};
    double value = 0;
    for (double seconds = 0; seconds < 2; seconds += 0.001)
      value = std::max(value, curve.at(seconds, {0, 0}, 1).value);
    return value;
  };
  // The first overshoot of a damped spring is e^(−πd/√(1−d²)).
  EXPECT_NEAR(highest(0.78), 1 + std::exp(-std::numbers::pi * 0.78 / std::sqrt(1 - 0.78 * 0.78)),
              1e-4);
  EXPECT_LE(highest(1), 1);
}

TEST(SpringCurve, AnImpossibleSpringIsSettledRatherThanEndless) {
  const SpringCurve curve{0, 0.8};
  EXPECT_TRUE(curve.settled(curve.at(0.1, {0, 0}, 1), 1, 0.001));
}

}  // namespace
}  // namespace orvex
