#include "platform/hosts/BuiltInHost.h"
#include "platform/hosts/HostChoice.h"
#include "platform_hosts/Panel.h"

#include <QSignalSpy>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

using namespace orvex;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QList<double> seconds(const QVariantList& list) {
  QList<double> result;
  for (const QVariant& value : list) result.append(value.toDouble());
  return result;
}

class EveryRate : public testing::TestWithParam<std::string> {};

TEST_P(EveryRate, StepsLandOnEveryFrame) {
  const QString rate = QString::fromStdString(GetParam());
  const auto runtime = makeHostRuntime({HostChoice::Kind::BuiltIn, rate});
  const auto host = runtime->hostSingleton();
  Panel panel(*runtime);
  ASSERT_TRUE(panel.snapshot.sequenceAvailable);
  const FCPXSequence sequence = *host->timeline()->activeSequence();
  const MediaTime frame = sequence.frameDuration;
  EXPECT_EQ(rate, frame.value() == 1 ? QString::number(frame.timescale())
                                     : QStringLiteral("%1/%2").arg(frame.timescale()).arg(1001));
  const auto frames = static_cast<std::int64_t>(std::ceil(10 / frame.seconds()));
  for (std::int64_t k = 1; k <= frames; ++k) {
    panel.adapter.moveByFrames(1);
    ASSERT_EQ(host->timeline()->playheadTime(), MediaTime(k * frame.value(), frame.timescale()));
    ASSERT_EQ(panel.snapshot.playheadSeconds, host->timeline()->playheadTime().seconds());
  }
  for (std::int64_t k = frames - 1; k >= 0; --k) {
    panel.adapter.moveByFrames(-1);
    ASSERT_EQ(host->timeline()->playheadTime(), MediaTime(k * frame.value(), frame.timescale()));
  }
  // The sequence is whole frames long, and its end can be reached.
  EXPECT_EQ(sequence.duration.value() % frame.value(), 0);
  EXPECT_NEAR(sequence.duration.seconds(), 60, 0.05);
  panel.adapter.moveToEnd();
  EXPECT_EQ(host->timeline()->playheadTime(), sequence.duration);
}

INSTANTIATE_TEST_SUITE_P(BuiltInHost, EveryRate,
                         testing::Values("24000/1001", "24", "25", "30000/1001", "30", "50",
                                         "60000/1001", "60"));

TEST(BuiltInHost, ClipsFillTheSequence) {
  for (const QString& rate : BuiltInHost::frameRates()) {
    const BuiltInHost host(rate);
    double end = 0;
    for (const QVariant& value : host.clips()) {
      const auto clip = value.value<BuiltInClip>();
      EXPECT_NEAR(clip.start, end, 1e-9);
      EXPECT_GT(clip.duration, 1);
      EXPECT_FALSE(clip.name.isEmpty());
      end = clip.start + clip.duration;
    }
    EXPECT_NEAR(end, host.durationSeconds(), 1e-9);
  }
}

TEST(BuiltInHost, PerformsTimelineActions) {
  BuiltInHost host(QStringLiteral("24000/1001"));
  const QSignalSpy points(&host, &BuiltInHost::speedPointsChanged);
  const auto perform = [&host](QStringView action) {
    return host.performTimelineAction(action.toString());
  };
  EXPECT_TRUE(perform(u"toggle-retime"));
  EXPECT_TRUE(host.retimeEditorOpen());
  EXPECT_TRUE(perform(u"toggle-retime"));
  EXPECT_FALSE(host.retimeEditorOpen());

  const FrameRate rate{24000, 1001};
  for (const std::int64_t frame : {240, 24, 48, 24}) {
    host.seek(rate.timeOfFrame(frame).seconds());
    EXPECT_TRUE(perform(u"blade-speed"));
  }
  EXPECT_THAT(seconds(host.speedPoints()), ElementsAre(1.001, 2.002, 10.01));
  EXPECT_EQ(points.size(), 3);
  host.setSpeedPercent(250);
  EXPECT_TRUE(perform(u"normal-speed"));
  EXPECT_EQ(host.speedPercent(), 100);
  EXPECT_THAT(host.speedPoints(), IsEmpty());
  for (const QStringView unknown : {u"", u"Blade-Speed", u"blade"}) EXPECT_FALSE(perform(unknown));
}

TEST(BuiltInHost, TakesOnlyWhatMakesSense) {
  BuiltInHost host(QStringLiteral("no rate"));
  EXPECT_EQ(host.frameRate(), QStringLiteral("25"));
  host.seek(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(host.playheadSeconds(), 0);
  host.seek(std::numeric_limits<double>::infinity());
  EXPECT_EQ(host.playheadSeconds(), host.durationSeconds());
  host.seek(-1e300);
  EXPECT_EQ(host.playheadSeconds(), 0);
  host.setSpeedPercent(0);
  EXPECT_EQ(host.speedPercent(), 1);
  host.setSpeedPercent(1'000'000);
  EXPECT_EQ(host.speedPercent(), 10'000);

  // A move to nowhere ends as well.
  CountingObserver observer;
  host.timeline()->addTimelineObserver(&observer);
  host.timeline()->movePlayheadTo(MediaTime());
  EXPECT_TRUE(waitUntil([&] { return observer.playheads == 1; }));
  host.timeline()->removeTimelineObserver(&observer);
}

TEST(BuiltInHost, FrameRateChangesKeepThePlace) {
  BuiltInHost host(QStringLiteral("60"));
  CountingObserver observer;
  host.timeline()->addTimelineObserver(&observer);
  for (const double second : {30.0, 30.0 + 1.0 / 60, 45.0}) {
    host.seek(second);
    host.performTimelineAction(QStringLiteral("blade-speed"));
  }
  host.setFrameRate(QStringLiteral("24"));
  EXPECT_EQ(host.playheadSeconds(), 45);
  EXPECT_THAT(seconds(host.speedPoints()), ElementsAre(30, 45)) << "one point for a frame";
  EXPECT_EQ(host.timeline()->activeSequence()->frameDuration, MediaTime(1, 24));
  EXPECT_TRUE(waitUntil([&] { return observer.sequences == 1; }));

  // From the end of a longer sequence to that of a shorter one.
  host.setFrameRate(QStringLiteral("30000/1001"));
  host.seek(1000);
  host.setFrameRate(QStringLiteral("60"));
  EXPECT_EQ(host.playheadSeconds(), host.durationSeconds());
}

TEST(BuiltInHost, PlaysToTheEnd) {
  BuiltInHost host(QStringLiteral("60"));
  CountingObserver observer;
  host.timeline()->addTimelineObserver(&observer);
  QSignalSpy playheads(&host, &BuiltInHost::playheadChanged);
  QElapsedTimer time;
  time.start();
  host.setPlaying(true);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads >= 10; }));
  // The clock keeps to real time: it is read after the playhead and before it.
  const double before = host.playheadSeconds();
  const auto elapsed = static_cast<double>(time.nsecsElapsed()) / 1e9;
  EXPECT_LE(before, elapsed);
  EXPECT_LE(observer.playheads, elapsed * 60 + 1);
  EXPECT_LE(playheads.size(), elapsed * 60 + 1);

  // A hundred times as fast, a minute is soon over.
  host.setSpeedPercent(10'000);
  EXPECT_GE(host.playheadSeconds(), before);
  ASSERT_TRUE(waitUntil([&] { return !host.playing(); }));
  EXPECT_EQ(host.playheadSeconds(), host.durationSeconds());
  host.setPlaying(true);
  EXPECT_LT(host.playheadSeconds(), host.durationSeconds()) << "from the end it begins again";
  host.setPlaying(false);

  // Paused, nothing moves and nobody is told.
  QCoreApplication::processEvents();
  std::ignore = waitUntil([] { return false; }, TimelineObservers::kInterval * 2);
  const int told = observer.all();
  const double paused = host.playheadSeconds();
  std::ignore = waitUntil([] { return false; }, TimelineObservers::kInterval * 4);
  EXPECT_EQ(observer.all(), told);
  EXPECT_EQ(host.playheadSeconds(), paused);
}

}  // namespace
