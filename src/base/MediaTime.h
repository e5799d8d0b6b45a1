#pragma once

#include <cstdint>

namespace orvex {

/// A rational media time, `value / timescale` seconds, as host interfaces exchange it.
///
/// Besides numbers it can be invalid (the default), indefinite, or infinite in either direction;
/// only a number has a meaningful `value` and `timescale`.
class MediaTime {
 public:
  /// Invalid.
  constexpr MediaTime() noexcept = default;

  /// `value` units of 1/`timescale` seconds. A timescale below 1 yields an invalid time.
  constexpr MediaTime(std::int64_t value, std::int32_t timescale) noexcept
      : value_(timescale > 0 ? value : 0),
        timescale_(timescale > 0 ? timescale : 0),
        kind_(timescale > 0 ? Kind::Number : Kind::Invalid) {}

  [[nodiscard]] static constexpr MediaTime positiveInfinity() noexcept {
    return MediaTime(Kind::PositiveInfinity);
  }
  [[nodiscard]] static constexpr MediaTime negativeInfinity() noexcept {
    return MediaTime(Kind::NegativeInfinity);
  }
  [[nodiscard]] static constexpr MediaTime indefinite() noexcept {
    return MediaTime(Kind::Indefinite);
  }

  /// The time nearest to `seconds` (halves away from zero) in units of 1/`preferredTimescale`.
  ///
  /// Where that would overflow the value, the timescale is halved until it fits; what does not fit
  /// at timescale 1 becomes an infinity, as does an infinite argument. Not-a-number, or a timescale
  /// below 1, yields an invalid time.
  [[nodiscard]] static MediaTime fromSeconds(double seconds,
                                             std::int32_t preferredTimescale) noexcept;

  [[nodiscard]] constexpr bool isValid() const noexcept { return kind_ != Kind::Invalid; }
  [[nodiscard]] constexpr bool isNumber() const noexcept { return kind_ == Kind::Number; }

  [[nodiscard]] constexpr std::int64_t value() const noexcept { return value_; }
  /// Units per second; 0 unless this is a number.
  [[nodiscard]] constexpr std::int32_t timescale() const noexcept { return timescale_; }

  /// Seconds; ±infinity for an infinite time, not-a-number for an invalid or indefinite one.
  [[nodiscard]] double seconds() const noexcept;

  /// Same kind, same value, same timescale: 1/25 and 2/50 are different times here.
  friend constexpr bool operator==(const MediaTime&, const MediaTime&) noexcept = default;

 private:
  enum class Kind : std::uint8_t {
    Invalid,
    Number,
    Indefinite,
    PositiveInfinity,
    NegativeInfinity
  };

  constexpr explicit MediaTime(Kind kind) noexcept : kind_(kind) {}

  std::int64_t value_ = 0;
  std::int32_t timescale_ = 0;
  Kind kind_ = Kind::Invalid;
};

/// A start and a length.
struct MediaTimeRange {
  MediaTime start;
  MediaTime duration;

  /// Both times are valid and the length is not negative.
  [[nodiscard]] bool isValid() const noexcept;

  friend constexpr bool operator==(const MediaTimeRange&, const MediaTimeRange&) noexcept = default;
};

}  // namespace orvex
