#include "platform/hosts/FrameRate.h"

#include <algorithm>
#include <cmath>

namespace orvex {

std::optional<FrameRate> FrameRate::fromContainer(double framesPerSecond) {
  constexpr double kTolerance = 0.005;
  if (!(framesPerSecond >= 0.1 && framesPerSecond <= 1000)) return std::nullopt;
  const FrameRate whole{static_cast<std::int32_t>(std::lround(framesPerSecond)), 1};
  const FrameRate broadcast{static_cast<std::int32_t>(std::lround(framesPerSecond * 1.001) * 1000),
                            1001};
  const auto distance = [framesPerSecond](const FrameRate& rate) {
    return std::abs(rate.framesPerSecond() - framesPerSecond);
  };
  const FrameRate& nearest = distance(broadcast) < distance(whole) ? broadcast : whole;
  if (nearest.numerator > 0 && distance(nearest) <= kTolerance * framesPerSecond) return nearest;
  return FrameRate{static_cast<std::int32_t>(std::lround(framesPerSecond * 1000)), 1000};
}

QString FrameRate::text() const {
  return denominator == 1 ? QString::number(numerator)
                          : QStringLiteral("%1/%2").arg(numerator).arg(denominator);
}

std::int64_t FrameRate::frameNearest(double seconds) const noexcept {
  constexpr double kFarthest = 1e9;
  return std::llround(std::clamp(seconds, -kFarthest, kFarthest) * numerator / denominator);
}

}  // namespace orvex
