#include "ui/OrvexFormat.h"

#include "base/Text.h"
#include "host/Timecode.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvex {
namespace {

QString unknown() {
  return QStringLiteral("—");
}

}  // namespace

QString OrvexFormat::timecode(double seconds) {
  return orvexTimecodeLike(seconds);
}

QString OrvexFormat::seconds2(double seconds) {
  return std::isfinite(seconds) ? fixedText(seconds, 2) + u's' : unknown();
}

QString OrvexFormat::rate(double fps) {
  return std::isfinite(fps) && fps > 0 ? fixedText(fps, 2) : unknown();
}

QString OrvexFormat::finiteRate(double fps) {
  return std::isfinite(fps) ? fixedText(fps, 2) : unknown();
}

QString OrvexFormat::bytes(double count) {
  if (!(count >= 1000)) return fixedText(std::max(count, 0.0), 0) + QStringLiteral(" B");
  static constexpr std::array kUnits{u'K', u'M', u'G', u'T', u'P', u'E'};
  std::size_t unit = 0;
  // What would be rounded to a thousand is one of the next unit.
  for (count /= 1000; count >= 999.95 && unit + 1 < kUnits.size(); ++unit) count /= 1000;
  return fixedText(count, 1) + u' ' + kUnits.at(unit) + u'B';
}

QString OrvexFormat::count(const EngineSummary& summary) {
  return QString::number(summary.count);
}

}  // namespace orvex
