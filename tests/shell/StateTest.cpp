#include "shell/OrvexState.h"
#include "support/Wait.h"

#include <QElapsedTimer>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace orvex;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kError = OrvexToast::Kind::error;
constexpr auto kInfo = OrvexToast::Kind::info;

TEST(State, ANewerToastReplacesTheOlderAndKeepsItsOwnTime) {
  for (const QString& second : {u"second"_s, u"first"_s}) {
    OrvexState state;
    QElapsedTimer sinceSecond;
    state.showToast(u"first"_s, kError, 0.15);
    EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 80ms));
    state.showToast(second, kInfo, 0.3);
    sinceSecond.start();
    EXPECT_EQ(state.toast(), (OrvexToast{second, kInfo}));
    ASSERT_TRUE(waitUntil([&] { return !state.toast(); }));
    EXPECT_GE(sinceSecond.elapsed(), 299);
  }
}

TEST(State, OddDurationsAreBounded) {
  OrvexState state;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double duration : {0.0, -1.0, std::nan(""), -kInfinity}) {
    state.showToast(u"short"_s, kInfo, duration);
    EXPECT_TRUE(state.toast());
    QCoreApplication::processEvents();
    EXPECT_FALSE(state.toast()) << duration;
  }
  state.showToast(u"long"_s, kInfo, kInfinity);
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 50ms));
}

}  // namespace
