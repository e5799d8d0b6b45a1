#pragma once

#include "base/MediaTime.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace orvex {

/// Frames per second as a fraction, `numerator` / `denominator`, both positive. Frame k begins at
/// exactly k · denominator / numerator seconds.
struct FrameRate {
  std::int32_t numerator = 25;
  std::int32_t denominator = 1;

  /// The rate that a container means by `framesPerSecond`, a rounded decimal number: the whole
  /// number or the whole number · 1000/1001 next to it, or, where neither is within half a per
  /// cent, the number itself in thousandths. Nothing for what is no rate of a video (below 0.1,
  /// above 1000, not a number).
  [[nodiscard]] static std::optional<FrameRate> fromContainer(double framesPerSecond);

  /// "25" or "24000/1001".
  [[nodiscard]] QString text() const;

  [[nodiscard]] double framesPerSecond() const noexcept {
    return static_cast<double>(numerator) / denominator;
  }
  [[nodiscard]] MediaTime frameDuration() const noexcept { return {denominator, numerator}; }
  /// The exact beginning of frame `frame`.
  [[nodiscard]] MediaTime timeOfFrame(std::int64_t frame) const noexcept {
    return {frame * denominator, numerator};
  }
  /// The frame whose beginning is nearest to `seconds`; times beyond ±10^9 s count as that.
  /// `seconds` is not not-a-number.
  [[nodiscard]] std::int64_t frameNearest(double seconds) const noexcept;

  friend bool operator==(const FrameRate&, const FrameRate&) = default;
};

}  // namespace orvex
