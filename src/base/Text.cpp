#include "base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace orvex {

// QString's own formatting rounds ties away from zero and so differs from printf in the last digit
// (0.125 becomes "0.13").
QString fixedText(double value, int decimals) {
  // Sign, every digit before the point, the point, the decimals.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 20> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                     std::chars_format::fixed, std::clamp(decimals, 0, 17));
  return QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
}

}  // namespace orvex
