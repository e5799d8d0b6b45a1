#include "Fuzz.h"
#include "speed/SpeedCurve.h"

// What is read must be a curve whose own text reads back as the curve that the text shows.
void check(const QByteArray& bytes) {
  if (const auto curve = orvex::SpeedCurve::fromBezierCode(QString::fromUtf8(bytes))) {
    const QString code = curve->bezierCode();
    const auto again = orvex::SpeedCurve::fromBezierCode(code);
    if (!again || again->bezierCode() != code) std::abort();
  }
}
