#include "ui/DiscProfile.h"

#include <gtest/gtest.h>

namespace orvex {
namespace {

TEST(DiscProfile, IsTheGaussianBlurOfADisc) {
  const DiscProfile profile(160, 80);
  constexpr double kExpected[] = {.865, .831, .731, .576, .396, .232, .113, .045, .015, .004, .001};
  ASSERT_EQ(profile.reach(), 400);
  for (int i = 0; i <= 10; ++i)
    // What is left at the reach is taken off everywhere.
    EXPECT_NEAR(profile.at(static_cast<float>(i) * 40), kExpected[i], 0.0015) << i;
}

TEST(DiscProfile, EndsInNothing) {
  const DiscProfile profile(40, 95);
  const auto reach = static_cast<float>(profile.reach());
  EXPECT_LT(profile.at(reach * 0.999f), 0.0002f);
  EXPECT_EQ(profile.at(reach * 5), 0);
}

}  // namespace
}  // namespace orvex
