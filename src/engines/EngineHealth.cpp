#include "engines/EngineHealth.h"

#include <array>

namespace orvex {
namespace {

// In the order of the enumeration.
constexpr std::array<QStringView, 5> kRawValues{u"ready", u"needsAccess", u"empty", u"unavailable",
                                                u"error"};

}  // namespace

QString rawValue(EngineHealth health) {
  return kRawValues.at(static_cast<std::size_t>(health)).toString();
}

std::optional<EngineHealth> engineHealthFromRawValue(QStringView raw) {
  for (std::size_t i = 0; i < kRawValues.size(); ++i)
    if (kRawValues[i] == raw) return static_cast<EngineHealth>(i);
  return std::nullopt;
}

}  // namespace orvex
