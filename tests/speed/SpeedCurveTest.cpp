#include "speed/SpeedCurve.h"

TEST(SpeedCurve, ReadsItsTextFormAndRefusesWhatIsNotOne) {
  const std::pair<QString, SpeedCurve> good[] = {
      {u"cubic-bezier(0.1, 0.72, 0.28, 1.0)"_s, {0.1, 0.72, 0.28, 1}},
      {u"  Cubic-Bezier( .5,0 ,\t1e-1, 1 ) ; "_s, {0.5, 0, 0.1, 1}},
      {u"cubic-bezier(-2, 0.5, 1.7, 9)"_s, {0, 0.5, 1, 1}},
  };
  for (const auto& [text, curve] : good) EXPECT_EQ(SpeedCurve::fromBezierCode(text), curve);
  // Halves go to the even digit, and there is no zero below zero.
  EXPECT_EQ(SpeedCurve(-0.0, 0.004999, 0.125, kNan).bezierCode(),
            u"cubic-bezier(0.00, 0.00, 0.12, 0.00)");
  for (const QString& bad : {u""_s, u"cubic-bezier(1,2,3)"_s, u"cubic-bezier(1,2,3,4,5)"_s,
                             u"cubic-bezier(0,2 0,2 0,8 0,8)"_s, u"cubic-bezier(nan,0,0,0)"_s,
                             u"cubic-bezier(0, 0, 1, 1) x"_s, u"0.2,0.2,0.8,0.8"_s}) {
    const auto read = SpeedCurve::fromBezierCode(bad);
    ASSERT_FALSE(read) << bad;
    EXPECT_TRUE(read.error().contains(u"cubic-bezier(0.20"));
  }
}

TEST(SpeedCurve, SpeedRangeIsThatOfTheSlopeMeasuredAlongTheCurve) {
  for (int n = 0; n < 200; ++n) {
    const auto part = [n](double factor) { return std::fmod(0.05 + n * factor, 0.9) + 0.05; };
    const SpeedCurve curve(part(0.173), part(0.311), part(0.237), part(0.419));
    double smallest = kInfinity;
    double largest = 0;
    constexpr int kSteps = 20000;
    for (int i = 1; i <= kSteps; ++i) {
      const auto from = curve.pointAt(double(i - 1) / kSteps);
      const auto to = curve.pointAt(double(i) / kSteps);
      const double percent = 100 * (to.y - from.y) / (to.x - from.x);
      smallest = std::min(smallest, percent);
      largest = std::max(largest, percent);
    }
    const auto range = curve.speedRange();
    EXPECT_NEAR(range.minimumPercent, smallest, 0.01 * largest) << qPrintable(curve.bezierCode());
    EXPECT_NEAR(range.maximumPercent, largest, 0.01 * largest) << qPrintable(curve.bezierCode());
  }
}

TEST(SpeedCurve, StandingAndVerticalEndsHaveASpeed) {
  EXPECT_TRUE(std::isinf(SpeedCurve(0, 1, 1, 1).speedRange().maximumPercent));
  EXPECT_EQ(SpeedCurve(0.65, 0, 0.18, 1).speedRange().minimumPercent, 0);
}
