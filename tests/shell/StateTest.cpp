#include "shell/OrvexState.h"

constexpr auto kInfo = OrvexToast::Kind::info;

TEST(State, ANewerToastReplacesTheOlderAndKeepsItsOwnTime) {
  OrvexState state;
  QElapsedTimer sinceSecond;
  state.showToast(u"first"_s, OrvexToast::Kind::error, 0.15);
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 80ms));
  state.showToast(u"first"_s, kInfo, 0.3);
  sinceSecond.start();
  EXPECT_EQ(state.toast(), (OrvexToast{u"first"_s, kInfo}));
  ASSERT_TRUE(waitUntil([&] { return !state.toast(); }));
  EXPECT_GE(sinceSecond.elapsed(), 299);
  for (const double duration : {0.0, -kInfinity, kNan}) {
    state.showToast(u"short"_s, kInfo, duration);
    QCoreApplication::processEvents();
    EXPECT_FALSE(state.toast()) << duration;
  }
  state.showToast(u"long"_s, kInfo, kInfinity);
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 50ms));
}
