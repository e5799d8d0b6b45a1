#include "ui/SpringCurve.h"

#include <numbers>

using Point = SpringCurve::Point;

TEST(SpringCurve, FollowsTheEquationOfMotion) {
  for (const SpringCurve& curve : {SpringCurve{0.28, 0.78}, {0.34, 0.8}, {0.36, 0.1}}) {
    SCOPED_TRACE(curve.dampingFraction);
    for (const Point start : {Point{0, 0}, Point{0.4, 6}, Point{1.2, -9}}) {
      EXPECT_NEAR(curve.at(0, start, 1).value, start.value, 1e-9);
      EXPECT_NEAR(curve.at(0, start, 1).velocity, start.velocity, 1e-9);
      for (const double seconds : {0.0, 0.03, 0.11, 0.4}) {
        // The slopes of value and velocity are those that pull and friction make.
        constexpr double kStep = 1e-6;
        const Point now = curve.at(seconds, start, 1);
        const Point next = curve.at(seconds + kStep, start, 1);
        const double rate = 2 * std::numbers::pi / curve.response;
        EXPECT_NEAR((next.value - now.value) / kStep, now.velocity, 0.01) << seconds;
        EXPECT_NEAR(
            (next.velocity - now.velocity) / kStep,
            -rate * rate * (now.value - 1) - 2 * curve.dampingFraction * rate * now.velocity, 1)
            << seconds;
      }
    }
  }
}

TEST(SpringCurve, AnImpossibleSpringIsSettledRatherThanEndless) {
  const SpringCurve curve{0, 0.8};
  EXPECT_TRUE(curve.settled(curve.at(0.1, {0, 0}, 1), 1, 0.001));
}
