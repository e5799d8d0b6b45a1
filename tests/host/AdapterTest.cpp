#include "support/Panel.h"

namespace {

MediaTime ms(std::int64_t milliseconds) {
  return {milliseconds, 1000};
}

// A host whose every answer the test decides.
struct ScriptedHost final : FCPXHost, FCPXTimeline {
  QString name() const override { return u"Final Cut Pro"_s; }
  QString versionString() const override { return u"10.7"_s; }
  QString bundleIdentifier() const override { return u"com.apple.FinalCut"_s; }
  FCPXTimeline* timeline() override { return hasTimeline ? this : nullptr; }

  std::optional<FCPXSequence> activeSequence() const override { return sequence; }
  MediaTime playheadTime() const override {
    ++reads;
    return playhead;
  }
  MediaTimeRange sequenceTimeRange() const override { return range; }
  void addTimelineObserver(FCPXTimelineObserver* observer) override { observers.append(observer); }
  void removeTimelineObserver(FCPXTimelineObserver* observer) override {
    observers.removeOne(observer);
  }
  void movePlayheadTo(MediaTime time) override {
    moves.append(time);
    playhead = time;
  }

  bool hasTimeline = true;
  std::optional<FCPXSequence> sequence;
  MediaTime playhead = ms(0);
  MediaTimeRange range;
  QList<FCPXTimelineObserver*> observers;
  QList<MediaTime> moves;
  mutable int reads = 0;
};

struct Adapter : testing::Test, protected HostRuntime {
  Adapter() { host = std::make_shared<ScriptedHost>(); }
  std::shared_ptr<FCPXHost> hostSingleton() override { return host; }

  // From 10 s to 70 s, at 25 frames a second.
  void openSequence() {
    host->sequence = FCPXSequence{u"Film"_s, ms(10'000), ms(60'000), MediaTime(1, 25)};
  }

  // What is told of a host without a timeline.
  const HostSnapshot bare{
      .connected = true, .hostVersion = u"10.7"_s, .bundleIdentifier = u"com.apple.FinalCut"_s};
  // Not there before the panel is, so that the tests say when to connect.
  std::shared_ptr<ScriptedHost> host;
  Panel panel{*this};
  FinalCutHostAdapter& adapter = panel.adapter;
};

TEST_F(Adapter, ReadsTheSequence) {
  openSequence();
  host->playhead = ms(12'500);
  adapter.connect();
  HostSnapshot expected = bare;
  expected.sequenceAvailable = true;
  expected.sequenceName = u"Film"_s;
  expected.sequenceStartSeconds = 10;
  expected.sequenceDurationSeconds = 60;
  expected.frameDurationSeconds = 0.04;
  expected.fps = 25;
  expected.playheadSeconds = 12.5;
  EXPECT_EQ(panel.snapshot, expected);
  // What is no number becomes zero.
  for (const MediaTime& time : {MediaTime(), MediaTime::positiveInfinity()}) {
    host->sequence = FCPXSequence{u"Film"_s, time, time, time};
    host->playhead = time;
    adapter.connect();
    expected = bare;
    expected.sequenceAvailable = true;
    expected.sequenceName = u"Film"_s;
    EXPECT_EQ(panel.snapshot, expected);
  }
}

TEST_F(Adapter, ATimelineWithoutASequenceHasItsRange) {
  // The range, whether it counts as a sequence, its start and its duration.
  const std::tuple<MediaTimeRange, bool, double, double> cases[] = {
      {MediaTimeRange{ms(2000), ms(10'000)}, true, 2, 10},
      {MediaTimeRange{ms(2000), ms(0)}, false, 2, 0},
      {MediaTimeRange{ms(2000), MediaTime()}, false, 0, 0},
      {MediaTimeRange{ms(2000), MediaTime::positiveInfinity()}, false, 2, 0},
  };
  for (const auto& [range, available, start, duration] : cases) {
    host->range = range;
    adapter.connect();
    HostSnapshot expected = bare;
    expected.sequenceAvailable = available;
    if (available) expected.sequenceName = u"ACTIVE TIMELINE"_s;
    expected.sequenceStartSeconds = start;
    expected.sequenceDurationSeconds = duration;
    EXPECT_EQ(panel.snapshot, expected) << range.duration.seconds();
  }
}

TEST_F(Adapter, WithoutHostOrTimeline) {
  host->hasTimeline = false;
  adapter.connect();
  EXPECT_EQ(panel.snapshot, bare);

  host.reset();
  adapter.connect();
  EXPECT_EQ(panel.snapshot, HostSnapshot::disconnected());
  EXPECT_THAT(panel.notices, ElementsAre(u"error: Final Cut Pro host proxy bulunamadı."_s));
  panel.snapshot.connected = true;
  adapter.refresh(u"home"_s);
  EXPECT_EQ(panel.snapshot, HostSnapshot::disconnected());
}

TEST_F(Adapter, ObservesOneHostOnce) {
  adapter.connect();
  adapter.connect();
  EXPECT_EQ(host->observers.size(), 1);
  const auto first = std::exchange(host, std::make_shared<ScriptedHost>());
  adapter.connect();
  EXPECT_THAT(first->observers, IsEmpty());
  EXPECT_EQ(host->observers.size(), 1);
  adapter.disconnect();
  EXPECT_THAT(host->observers, IsEmpty());
}

TEST_F(Adapter, MovesAreClamped) {
  using Host = FinalCutHostAdapter;
  // In 1/600 s, on a sequence from 10 s to 70 s with the playhead at 12 s.
  const std::pair<void (*)(Host&), std::int64_t> cases[] = {
      {[](Host& a) { a.moveToStart(); }, 6000},
      {[](Host& a) { a.moveToEnd(); }, 42'000},
      {[](Host& a) { a.moveBy(-1); }, 6600},
      {[](Host& a) { a.moveBy(-3); }, 6000},
      {[](Host& a) { a.moveByFrames(10); }, 7440},
      {[](Host& a) { a.moveByFrames(std::numeric_limits<qint64>::max()); }, 42'000},
      {[](Host& a) { a.movePlayhead(12.5); }, 7500},
      {[](Host& a) { a.movePlayhead(kInfinity); }, 42'000},
  };
  openSequence();
  for (const auto& [move, expected] : cases) {
    host->playhead = ms(12'000);
    adapter.connect();
    move(adapter);
    EXPECT_EQ(host->moves.takeLast(), MediaTime(expected, 600));
    EXPECT_EQ(panel.snapshot.playheadSeconds, static_cast<double>(expected) / 600);
  }
}

TEST_F(Adapter, MovesThatCannotBe) {
  const auto all = [this] {
    adapter.moveToStart();
    adapter.moveToEnd();
    adapter.moveBy(1);
    adapter.moveByFrames(1);
    adapter.movePlayhead(1);
    return std::exchange(panel.notices, {});
  };
  const QString none = u"error: Aktif timeline yok."_s;
  const QString frames = u"info: Final Cut frameDuration henüz hazır değil."_s;
  EXPECT_THAT(all(), ElementsAre(none, none, none, frames,
                                 u"error: Final Cut timeline proxy hazır değil."_s));
  // A range without a sequence can be moved in, but not by frames.
  host->range = {ms(0), ms(10'000)};
  adapter.connect();
  EXPECT_THAT(all(), ElementsAre(frames));
  EXPECT_EQ(host->moves.size(), 4);
}

TEST_F(Adapter, TimelineCommands) {
  const std::tuple<QString, bool, QString> cases[] = {
      {u"toggle-retime"_s, true, u"info: Retime Editor komutu Final Cut'a gönderildi."_s},
      {u"blade-speed"_s, true, u"info: Playhead konumuna Speed Point eklendi."_s},
      {u"normal-speed"_s, true, u"info: Seçili klip Normal Speed %100 yapıldı."_s},
      {u"blade-speed"_s, false, u"error: Vantrelo yardımcı motoru açılamadı."_s},
      {u"Toggle-Retime"_s, false, u"error: Geçersiz timeline komutu."_s},
  };
  for (const auto& [action, opens, notice] : cases) {
    panel.opens = opens;
    adapter.performTimelineAction(action);
    EXPECT_EQ(panel.notices.takeLast(), notice);
  }
  EXPECT_EQ(panel.opened.size(), 4);
  EXPECT_EQ(panel.opened[1], u"vantrelo-finalcut://timeline-action?action=blade-speed");
}

TEST_F(Adapter, CallbacksFromManyThreads) {
  openSequence();
  adapter.connect();
  const int readsBefore = host->reads;
  constexpr int kCallbacks = 10'000;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
      threads.emplace_back([this] {
        for (int i = 0; i < kCallbacks; ++i) {
          adapter.playheadTimeChanged();
          adapter.sequenceTimeRangeChanged();
          adapter.activeSequenceChanged();
        }
      });
    }
  }
  // Made while nothing was read, so every callback comes before this and one of them must show it.
  host->playhead = ms(7000);
  ASSERT_TRUE(waitUntil([this] { return panel.snapshot.playheadSeconds == 7; }));
  EXPECT_EQ(host->reads - readsBefore, 3) << "one refresh for each kind of callback";

  // After the flood, one more change is told again.
  host->playhead = ms(8000);
  adapter.playheadTimeChanged();
  EXPECT_TRUE(waitUntil([this] { return panel.snapshot.playheadSeconds == 8; }));
}

}  // namespace
