#include "host/Timecode.h"

TEST(Timecode, Texts) {
  const std::pair<double, QStringView> cases[] = {
      {3725.5, u"01:02:05.500"},
      {-4, u"00:00:00.000"},
      // Truncated, not rounded.
      {0.9996, u"00:00:00.999"},
      {3599.9999, u"00:59:59.999"},
      // Hours do not wrap.
      {360000, u"100:00:00.000"},
      {kInfinity, u"—"},
      {kNan, u"—"},
  };
  for (const auto& [seconds, text] : cases)
    EXPECT_EQ(orvexTimecodeLike(seconds), text.toString()) << seconds;
}
