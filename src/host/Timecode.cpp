#include "host/Timecode.h"

#include <cmath>

namespace orvex {

QString orvexTimecodeLike(double seconds) {
  if (!std::isfinite(seconds)) return QStringLiteral("—");
  const double x = seconds >= 0 ? seconds : 0;
  // Hours are printed from the floating-point number: it can exceed every integer type.
  return QString::asprintf(
      "%02.0f:%02d:%02d.%03d", std::trunc(x / 3600), static_cast<int>(std::fmod(x, 3600) / 60),
      static_cast<int>(std::fmod(x, 60)), static_cast<int>((x - std::floor(x)) * 1000));
}

}  // namespace orvex
