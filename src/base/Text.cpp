#include "base/Text.h"

#include "base/ByteOrderMark.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace orvex {

QString utf8Text(QByteArrayView utf8) {
  if (!utf8.startsWith(kByteOrderMark)) return QString::fromUtf8(utf8);
  // A mark is dropped at the beginning only.
  return QString::fromUtf8('.' + utf8.toByteArray()).sliced(1);
}

QString printable(QString text, QStringView kept) {
  for (QChar& c : text)
    if (c.category() == QChar::Other_Control && !kept.contains(c)) c = QChar::ReplacementCharacter;
  return text;
}

// QString's own formatting rounds ties away from zero and so differs from printf in the last digit
// (0.125 becomes "0.13").
QString fixedText(double value, int decimals) {
  // Sign, every digit before the point, the point, the decimals.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 20> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                     std::chars_format::fixed, std::clamp(decimals, 0, 17));
  return QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
}

QString bytesText(double bytes) {
  if (!(bytes >= 1000)) return fixedText(std::max(bytes, 0.0), 0) + QStringLiteral(" B");
  static constexpr std::array kUnits{u'K', u'M', u'G', u'T', u'P', u'E'};
  std::size_t unit = 0;
  // What would be rounded to a thousand is one of the next unit.
  for (bytes /= 1000; bytes >= 999.95 && unit + 1 < kUnits.size(); ++unit) bytes /= 1000;
  return fixedText(bytes, 1) + u' ' + kUnits.at(unit) + u'B';
}

}  // namespace orvex
