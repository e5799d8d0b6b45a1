#include "base/MediaTime.h"

#include <cmath>
#include <limits>

namespace orvex {

MediaTime MediaTime::fromSeconds(double seconds, std::int32_t preferredTimescale) noexcept {
  if (std::isnan(seconds) || preferredTimescale < 1) return {};
  // 2^63 as a double; the largest 64-bit integer itself has no double.
  constexpr double kLimit = 9223372036854775808.0;
  for (std::int32_t timescale = preferredTimescale; timescale >= 1; timescale /= 2) {
    const double value = std::round(seconds * timescale);
    if (value >= -kLimit && value < kLimit) return {static_cast<std::int64_t>(value), timescale};
  }
  return seconds > 0 ? positiveInfinity() : negativeInfinity();
}

double MediaTime::seconds() const noexcept {
  switch (kind_) {
    case Kind::Number:
      return static_cast<double>(value_) / timescale_;
    case Kind::PositiveInfinity:
      return std::numeric_limits<double>::infinity();
    case Kind::NegativeInfinity:
      return -std::numeric_limits<double>::infinity();
    case Kind::Invalid:
    case Kind::Indefinite:
      break;
  }
  return std::numeric_limits<double>::quiet_NaN();
}

bool MediaTimeRange::isValid() const noexcept {
  return start.isValid() && duration.isValid() && !(duration.seconds() < 0);
}

}  // namespace orvex
