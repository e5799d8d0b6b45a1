#include "speed/SpeedCurve.h"
#include "speed/SpeedCurveEditing.h"
#include "speed/SpeedCurvePreset.h"

#include <QLocale>

#include <clocale>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

TEST(SpeedCurve, TextHasTwoDecimalsAndAPointInEveryLocale) {
  const QLocale before;
  for (const char* name : {"C", "tr_TR.UTF-8", "de_DE.UTF-8"}) {
    QLocale::setDefault(QLocale(QString::fromLatin1(name)));
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(SpeedCurve().bezierCode(), u"cubic-bezier(0.20, 0.20, 0.80, 0.80)");
    EXPECT_EQ(SpeedCurve(-0.0, 0.004999, 0.125, 0.999).bezierCode(),
              u"cubic-bezier(0.00, 0.00, 0.12, 1.00)");
  }
  std::setlocale(LC_ALL, "C");
  QLocale::setDefault(before);
}

TEST(SpeedCurve, CoordinatesAreClampedOneByOne) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(SpeedCurve(-3, 0.5, 7, nan), SpeedCurve(0, 0.5, 1, 0));
}

TEST(SpeedCurve, ReadsItsTextFormAndRefusesWhatIsNotOne) {
  const std::pair<QString, SpeedCurve> good[] = {
      {u"cubic-bezier(0.1, 0.72, 0.28, 1.0)"_s, {0.1, 0.72, 0.28, 1}},
      {u"  Cubic-Bezier( .5,0 ,\t1e-1, 1 ) ; "_s, {0.5, 0, 0.1, 1}},
      {u"cubic-bezier(-2, 0.5, 1.7, 9)"_s, {0, 0.5, 1, 1}},
  };
  for (const auto& [text, curve] : good) EXPECT_EQ(SpeedCurve::fromBezierCode(text), curve);
  for (const QString& bad : {u""_s, u"cubic-bezier(1,2,3)"_s, u"cubic-bezier(1,2,3,4,5)"_s,
                             u"cubic-bezier(0,2 0,2 0,8 0,8)"_s, u"cubic-bezier(nan,0,0,0)"_s,
                             u"cubic-bezier(0, 0, 1, 1) x"_s, u"0.2,0.2,0.8,0.8"_s}) {
    const auto read = SpeedCurve::fromBezierCode(bad);
    ASSERT_FALSE(read) << bad;
    EXPECT_TRUE(read.error().contains(u"cubic-bezier(0.20"));
  }
}

TEST(SpeedCurve, SpeedRangeIsThatOfTheSlopeMeasuredAlongTheCurve) {
  QList<SpeedCurve> curves;
  for (const SpeedCurvePreset& preset : SpeedCurvePreset::all()) curves.append(preset.points);
  for (int i = 0; i < 200; ++i) {
    const auto part = [i](double factor) { return std::fmod(0.05 + i * factor, 0.9) + 0.05; };
    curves.append({part(0.173), part(0.311), part(0.237), part(0.419)});
  }
  for (const SpeedCurve& curve : std::as_const(curves)) {
    double smallest = std::numeric_limits<double>::infinity();
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
  const auto linear = SpeedCurve(0, 0, 1, 1).speedRange();
  EXPECT_NEAR(linear.minimumPercent, 100, 1e-6);
  EXPECT_NEAR(linear.maximumPercent, 100, 1e-6);
  EXPECT_TRUE(std::isinf(SpeedCurve(0, 1, 1, 1).speedRange().maximumPercent));
  EXPECT_TRUE(std::isinf(SpeedCurve(1, 0, 0, 1).speedRange().maximumPercent));
  EXPECT_EQ(SpeedCurve(0.65, 0, 0.18, 1).speedRange().minimumPercent, 0);
}

TEST(SpeedCurveEditing, UndoAndRedoRetraceStepsAndADragIsOne) {
  SpeedCurveEditing editing;
  EXPECT_FALSE(editing.canUndo() || editing.canRedo());
  editing.selectPreset(u"luxury"_s);
  for (int i = 0; i < 10; ++i) editing.moveControlPoint(0, 0.1 * i, 0.5);
  editing.endGesture();
  editing.moveControlPoint(1, 0.9, 0.9);
  editing.endGesture();
  EXPECT_TRUE(editing.paste(u"cubic-bezier(1, 1, 0, 0)"_s).isEmpty());
  EXPECT_FALSE(editing.paste(u"nonsense"_s).isEmpty());
  EXPECT_EQ(editing.speedCurve(), SpeedCurve(1, 1, 0, 0));

  const QString codes[] = {
      u"cubic-bezier(0.90, 0.50, 0.90, 0.90)"_s,
      u"cubic-bezier(0.90, 0.50, 0.18, 1.00)"_s,
      u"cubic-bezier(0.65, 0.00, 0.18, 1.00)"_s,
      u"cubic-bezier(0.20, 0.20, 0.80, 0.80)"_s,
  };
  for (const QString& code : codes) {
    editing.undo();
    EXPECT_EQ(editing.bezierCode(), code);
  }
  EXPECT_EQ(editing.selectedPreset(), u"smooth");
  EXPECT_FALSE(editing.canUndo());
  editing.undo();
  editing.redo();
  EXPECT_EQ(editing.selectedPreset(), u"luxury");
  editing.reset();
  EXPECT_FALSE(editing.canRedo()) << "a new step ends the way forward";
}

}  // namespace
