#include "platform/hosts/BuiltInHost.h"
#include "platform/hosts/HostChoice.h"
#include "support/Panel.h"

namespace {

class EveryRate : public testing::TestWithParam<std::string> {};

TEST_P(EveryRate, StepsLandOnEveryFrame) {
  const QString rate = QString::fromStdString(GetParam());
  const auto runtime = makeHostRuntime({HostChoice::Kind::BuiltIn, rate});
  const auto host = std::dynamic_pointer_cast<BuiltInHost>(runtime->hostSingleton());
  Panel panel(*runtime);
  ASSERT_TRUE(panel.snapshot.sequenceAvailable);
  const FCPXSequence sequence = *host->timeline()->activeSequence();
  const MediaTime frame = sequence.frameDuration;
  const auto frames = static_cast<std::int64_t>(std::ceil(10 / frame.seconds()));
  for (std::int64_t step = 1; step <= 2 * frames; ++step) {
    panel.adapter.moveByFrames(step <= frames ? 1 : -1);
    const std::int64_t k = std::min(step, 2 * frames - step);
    ASSERT_EQ(host->timeline()->playheadTime(), MediaTime(k * frame.value(), frame.timescale()));
  }
  // Its end can be reached.
  EXPECT_NEAR(sequence.duration.seconds(), 60, 0.05);
  panel.adapter.moveToEnd();
  EXPECT_EQ(host->timeline()->playheadTime(), sequence.duration);
}

INSTANTIATE_TEST_SUITE_P(BuiltInHost, EveryRate,
                         testing::Values("24000/1001", "24", "25", "30000/1001", "30", "50",
                                         "60000/1001", "60"));

TEST(BuiltInHost, TakesOnlyWhatMakesSense) {
  BuiltInHost host(u"no rate"_s);
  EXPECT_EQ(host.frameRate(), u"25"_s);
  const std::pair<double, double> places[] = {
      {kNan, 0}, {kInfinity, host.durationSeconds()}, {-1e300, 0}};
  for (const auto& [to, place] : places) {
    host.seek(to);
    EXPECT_EQ(host.playheadSeconds(), place);
  }
  host.setSpeedPercent(0);
  EXPECT_EQ(host.speedPercent(), 1);
  // A LUT goes on the clip that is shown; after the last frame that is the last one.
  host.seek(8);
  EXPECT_EQ(host.applyLUT(u"Işık"_s), u"Röportaj 1");
  host.seek(60);
  EXPECT_EQ(host.applyLUT(u"Gece"_s), u"Kapanış");
}

TEST(BuiltInHost, FrameRateChangesKeepThePlace) {
  BuiltInHost host(u"60"_s);
  for (const double second : {45.0, 30.0, 30.0 + 1.0 / 60, 45.0}) {
    host.seek(second);
    host.performTimelineAction(u"blade-speed"_s);
  }
  host.setFrameRate(u"24"_s);
  EXPECT_EQ(host.playheadSeconds(), 45);
  EXPECT_EQ(host.speedPoints(), (QVariantList{30.0, 45.0})) << "one point for a frame";
  EXPECT_FALSE(host.performTimelineAction(u"Blade-Speed"_s));

  // From the end of a longer sequence to that of a shorter one.
  host.setFrameRate(u"30000/1001"_s);
  host.seek(1000);
  host.setFrameRate(u"60"_s);
  EXPECT_EQ(host.playheadSeconds(), host.durationSeconds());
}

TEST(BuiltInHost, PlaysToTheEnd) {
  BuiltInHost host(u"60"_s);
  CountingObserver observer;
  host.timeline()->addTimelineObserver(&observer);
  QElapsedTimer time;
  time.start();
  host.setPlaying(true);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads >= 10; }));
  // The clock keeps to real time: it is read after the playhead.
  const double before = host.playheadSeconds();
  const auto elapsed = static_cast<double>(time.nsecsElapsed()) / 1e9;
  EXPECT_LE(before, elapsed);
  EXPECT_LE(observer.playheads, elapsed * 60 + 1);

  // A hundred times as fast, a minute is soon over.
  host.setSpeedPercent(10'000);
  ASSERT_TRUE(waitUntil([&] { return !host.playing(); }));
  EXPECT_EQ(host.playheadSeconds(), host.durationSeconds());
  host.setPlaying(true);
  EXPECT_LT(host.playheadSeconds(), host.durationSeconds()) << "from the end it begins again";
  host.setPlaying(false);
}

}  // namespace
