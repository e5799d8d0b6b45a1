#include "platform/hosts/FrameRate.h"
#include "platform/hosts/TimelineObservers.h"
#include "support/Panel.h"

#include <gmock/gmock.h>
#include <limits>

using namespace orvex;

namespace {

TEST(FrameRate, FromContainer) {
  const struct {
    double container;
    std::optional<FrameRate> rate;
  } cases[] = {
      {23.976025, FrameRate{24000, 1001}},
      {23.98, FrameRate{24000, 1001}},
      {25.000001, FrameRate{25, 1}},
      {29.97003, FrameRate{30000, 1001}},
      // No standard rate, but a rate.
      {12.5, FrameRate{12500, 1000}},
      // No rate of a video.
      {0, std::nullopt},
      {90000, std::nullopt},
      {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(FrameRate::fromContainer(c.container) == c.rate) << c.container;
  }
}

TEST(TimelineObservers, TellTheStrongestFirst) {
  TimelineObservers observers;
  CountingObserver observer;
  observers.add(&observer);
  observers.add(&observer);
  for (int i = 0; i < 1000; ++i) {
    observers.changed(TimelineObservers::Playhead);
    observers.changed(TimelineObservers::TimeRange);
    observers.changed(TimelineObservers::ActiveSequence);
  }
  ASSERT_TRUE(waitUntil([&] { return observer.all() > 0; }));
  EXPECT_EQ(observer.sequences, 1);
  ASSERT_TRUE(waitUntil([&] { return observer.playheads > 0; }));
  EXPECT_EQ(observer.playheads, 1) << "a move's end is told, whatever came with it";
  EXPECT_EQ(observer.ranges, 0) << "a new sequence takes its range with it";

  observers.changed(TimelineObservers::Playhead);
  observers.withdrawPlayhead();
  observers.changed(TimelineObservers::TimeRange);
  ASSERT_TRUE(waitUntil([&] { return observer.ranges == 1; }));
  EXPECT_EQ(observer.playheads, 1);
}

TEST(TimelineObservers, MayLeaveWhileTold) {
  struct Leaving final : FCPXTimelineObserver {
    void activeSequenceChanged() override {}
    void sequenceTimeRangeChanged() override {}
    void playheadTimeChanged() override {
      ++told;
      leave();
    }
    int told = 0;
    std::function<void()> leave;
  } leaving;
  TimelineObservers observers;
  CountingObserver after;
  leaving.leave = [&] {
    observers.remove(&leaving);
    observers.remove(&after);
  };
  observers.add(&leaving);
  observers.add(&after);
  observers.changed(TimelineObservers::Playhead);
  ASSERT_TRUE(waitUntil([&] { return leaving.told == 1; }));
  EXPECT_EQ(after.all(), 0);
}

}  // namespace
