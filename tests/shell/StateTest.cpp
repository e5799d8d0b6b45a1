#include "shell/OrvexConfig.h"
#include "shell/OrvexState.h"
#include "support/Wait.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <limits>

using namespace orvex;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kError = OrvexToast::Kind::error;
constexpr auto kInfo = OrvexToast::Kind::info;

TEST(State, AFreshOneShowsHomeAndNoHost) {
  const OrvexState state;
  EXPECT_EQ(state.activePage(), OrvexPage::home);
  EXPECT_EQ(state.host(), HostSnapshot::disconnected());
  EXPECT_FALSE(state.host().connected);
  EXPECT_EQ(state.host().hostName, u"Final Cut Pro");
  EXPECT_EQ(state.host().hostVersion, u"—");
  EXPECT_EQ(state.host().sequenceName, u"NO SEQUENCE");
  EXPECT_FALSE(state.toast());
  EXPECT_EQ(state.panelWidth(), 1040);
  EXPECT_EQ(state.panelHeight(), 780);
  EXPECT_EQ(state.release().latestVersion, OrvexConfig::version());
  EXPECT_FALSE(state.release().checking || state.release().updateAvailable);
  EXPECT_TRUE(state.packs().isEmpty() && state.installedPacks().isEmpty());
}

TEST(State, ANewerToastReplacesTheOlderAndKeepsItsOwnTime) {
  OrvexState state;
  QElapsedTimer sinceSecond;
  state.showToast(u"first"_s, kError, 0.15);
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 80ms));
  state.showToast(u"second"_s, kInfo, 0.3);
  sinceSecond.start();
  EXPECT_EQ(state.toast(), (OrvexToast{u"second"_s, kInfo}));
  ASSERT_TRUE(waitUntil([&] { return !state.toast(); }));
  EXPECT_GE(sinceSecond.elapsed(), 299);
}

TEST(State, TheSameMessageAgainStaysForTheSecondsOwnTime) {
  OrvexState state;
  QElapsedTimer sinceSecond;
  state.showToast(u"same"_s, kError, 0.15);
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 80ms));
  state.showToast(u"same"_s, kError, 0.3);
  sinceSecond.start();
  ASSERT_TRUE(waitUntil([&] { return !state.toast(); }));
  EXPECT_GE(sinceSecond.elapsed(), 299);
}

TEST(State, OddDurationsAreBounded) {
  OrvexState state;
  for (const double duration : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(),
                                -std::numeric_limits<double>::infinity()}) {
    state.showToast(u"short"_s, kInfo, duration);
    EXPECT_TRUE(state.toast());
    QCoreApplication::processEvents();
    EXPECT_FALSE(state.toast()) << duration;
  }
  state.showToast(u"long"_s, kInfo, std::numeric_limits<double>::infinity());
  EXPECT_FALSE(waitUntil([&] { return !state.toast(); }, 50ms));
}

TEST(State, SettersTellOnlyOfChanges) {
  OrvexState state;
  const QSignalSpy pages(&state, &OrvexState::activePageChanged);
  const QSignalSpy hosts(&state, &OrvexState::hostChanged);
  state.setActivePage(OrvexPage::home);
  state.setHost(HostSnapshot::disconnected());
  EXPECT_EQ(pages.count() + hosts.count(), 0);
  HostSnapshot playing;
  playing.playheadSeconds = 1;
  state.setActivePage(OrvexPage::color);
  state.setHost(playing);
  EXPECT_EQ(pages.count(), 1);
  EXPECT_EQ(hosts.count(), 1);
}

TEST(State, InstalledVersionComparesIdentifiersExactly) {
  OrvexState state;
  state.setInstalledPacks({{u"a"_s, {}, u"1.0"_s, {}, {}}, {u"a"_s, {}, u"2.0"_s, {}, {}}});
  UniversalPack pack;
  pack.id = u"a"_s;
  EXPECT_EQ(state.installedVersion(pack), u"1.0"_s);
  pack.id = u"A"_s;
  EXPECT_EQ(state.installedVersion(pack), std::nullopt);
}

}  // namespace
