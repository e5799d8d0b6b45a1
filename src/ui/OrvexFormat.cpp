#include "ui/OrvexFormat.h"

#include "base/Text.h"
#include "host/Timecode.h"

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
  return bytesText(count);
}

QString OrvexFormat::count(const EngineSummary& summary) {
  return QString::number(summary.count);
}

}  // namespace orvex
