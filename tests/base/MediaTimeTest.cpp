#include "base/MediaTime.h"

TEST(MediaTime, FromSeconds) {
  const std::tuple<double, std::int32_t, MediaTime> cases[] = {
      {1.5, 600, {900, 600}},
      // Nearest, halves away from zero.
      {1.0 / 1200, 600, {1, 600}},
      {1001.0 / 24000, 600, {25, 600}},
      // The timescale is halved until the value fits.
      {2e16, 600, {6'000'000'000'000'000'000, 300}},
      // -2^63 is the one end of the range that a double can be.
      {-9223372036854775808.0, 1, {std::numeric_limits<std::int64_t>::min(), 1}},
      {9223372036854775808.0, 1, MediaTime::positiveInfinity()},
      {1e300, 600, MediaTime::positiveInfinity()},
      {-kInfinity, 600, MediaTime::negativeInfinity()},
      {kNan, 600, MediaTime()},
      {1, 0, MediaTime()},
  };
  for (const auto& [seconds, timescale, expected] : cases)
    EXPECT_EQ(MediaTime::fromSeconds(seconds, timescale), expected) << seconds << ' ' << timescale;
}
