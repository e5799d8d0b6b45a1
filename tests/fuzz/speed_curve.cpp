#include "speed/SpeedCurve.h"

#include <cstdlib>

// What is read must be a curve whose own text reads back as the curve that the text shows.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
  if (const auto curve = orvex::SpeedCurve::fromBezierCode(text)) {
    const QString code = curve->bezierCode();
    const auto again = orvex::SpeedCurve::fromBezierCode(code);
    if (!again || again->bezierCode() != code) std::abort();
  }
  return 0;
}
