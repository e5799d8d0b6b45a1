#include "platform/hosts/FrameRate.h"
#include "platform/hosts/TimelineObservers.h"
#include "support/Panel.h"

TEST(FrameRate, FromContainer) {
  const std::pair<double, std::optional<FrameRate>> rows[]{
      {23.976025, FrameRate{24000, 1001}},
      {23.98, FrameRate{24000, 1001}},
      {25.000001, FrameRate{25, 1}},
      {29.97003, FrameRate{30000, 1001}},
      // No standard rate, but a rate; and none of a video.
      {12.5, FrameRate{12500, 1000}},
      {0, std::nullopt},
      {90000, std::nullopt},
      {kNan, std::nullopt},
  };
  for (const auto& [container, rate] : rows)
    EXPECT_TRUE(FrameRate::fromContainer(container) == rate) << container;
}

TEST(TimelineObservers, TellTheStrongestFirst) {
  TimelineObservers observers;
  CountingObserver observer;
  observers.add(&observer);
  for (int i = 0; i < 1000; ++i) {
    observers.changed(TimelineObservers::Playhead);
    observers.changed(TimelineObservers::TimeRange);
    observers.changed(TimelineObservers::ActiveSequence);
  }
  ASSERT_TRUE(waitUntil([&] { return observer.playheads > 0; }));
  EXPECT_EQ(observer.sequences, 1);
  EXPECT_EQ(observer.playheads, 1) << "a move's end is told, whatever came with it";
  EXPECT_EQ(observer.ranges, 0) << "a new sequence takes its range with it";

  observers.changed(TimelineObservers::Playhead);
  observers.withdrawPlayhead();
  observers.changed(TimelineObservers::TimeRange);
  ASSERT_TRUE(waitUntil([&] { return observer.ranges == 1; }));
  EXPECT_EQ(observer.playheads, 1);
}
