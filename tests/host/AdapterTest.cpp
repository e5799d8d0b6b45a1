#include "host/FinalCutHostAdapter.h"
#include "platform/HostRuntime.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "support/Wait.h"

#include <QUrl>

#include <gmock/gmock.h>
#include <limits>
#include <thread>

using namespace orvex;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

MediaTime ms(std::int64_t milliseconds) {
  return {milliseconds, 1000};
}

// A host whose every answer the test decides.
class ScriptedHost final : public FCPXHost, public FCPXTimeline {
 public:
  QString name() const override { return QStringLiteral("Final Cut Pro"); }
  QString versionString() const override { return QStringLiteral("10.7"); }
  QString bundleIdentifier() const override { return QStringLiteral("com.apple.FinalCut"); }
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

class RecordingState final : public HostState {
 public:
  const HostSnapshot& host() const override { return snapshot; }
  void setHost(const HostSnapshot& newSnapshot) override { snapshot = newSnapshot; }
  void showHostNotice(const QString& message, Notice kind) override {
    notices.append((kind == Notice::Error ? QStringLiteral("error: ") : QStringLiteral("info: ")) +
                   message);
  }

  HostSnapshot snapshot;
  QStringList notices;
};

class Adapter : public testing::Test,
                protected HostRuntime,
                protected Workspace,
                protected SystemLog {
 protected:
  std::shared_ptr<FCPXHost> hostSingleton() override { return host; }
  bool open(const QUrl& url) override {
    opened.append(url.toString());
    return opens;
  }
  void line(const QString& text) override { lines.append(text); }

  // A sequence from `start` for `duration` milliseconds at 25 frames a second.
  void openSequence(std::int64_t start, std::int64_t duration) {
    host->sequence =
        FCPXSequence{QStringLiteral("Film"), ms(start), ms(duration), MediaTime(1, 25)};
  }

  std::shared_ptr<ScriptedHost> host = std::make_shared<ScriptedHost>();
  std::shared_ptr<RecordingState> state = std::make_shared<RecordingState>();
  QStringList opened;
  bool opens = true;
  QStringList lines;
  FinalCutHostAdapter adapter{state, *this, *this, *this};
};

TEST_F(Adapter, ReadsTheSequence) {
  openSequence(10'000, 60'000);
  host->playhead = ms(12'500);
  adapter.connect();

  HostSnapshot expected;
  expected.connected = true;
  expected.hostVersion = QStringLiteral("10.7");
  expected.bundleIdentifier = QStringLiteral("com.apple.FinalCut");
  expected.sequenceAvailable = true;
  expected.sequenceName = QStringLiteral("Film");
  expected.sequenceStartSeconds = 10;
  expected.sequenceDurationSeconds = 60;
  expected.frameDurationSeconds = 0.04;
  expected.fps = 25;
  expected.playheadSeconds = 12.5;
  EXPECT_EQ(state->snapshot, expected);
  EXPECT_THAT(lines,
              ElementsAre(QStringLiteral("[Vantrelo Orvex] host refresh connect • 10.7 • Film")));
  EXPECT_THAT(state->notices, IsEmpty());
}

TEST_F(Adapter, OddTimesBecomeZero) {
  const MediaTime odd[] = {MediaTime(), MediaTime::indefinite(), MediaTime::positiveInfinity(),
                           MediaTime::negativeInfinity()};
  for (const MediaTime& time : odd) {
    host->sequence = FCPXSequence{QStringLiteral("Film"), time, time, time};
    host->playhead = time;
    adapter.connect();
    EXPECT_TRUE(state->snapshot.sequenceAvailable);
    EXPECT_EQ(state->snapshot.sequenceStartSeconds, 0);
    EXPECT_EQ(state->snapshot.sequenceDurationSeconds, 0);
    EXPECT_EQ(state->snapshot.frameDurationSeconds, 0);
    EXPECT_EQ(state->snapshot.fps, 0);
    EXPECT_EQ(state->snapshot.playheadSeconds, 0);
  }
  host->sequence->frameDuration = MediaTime(0, 600);
  adapter.connect();
  EXPECT_EQ(state->snapshot.fps, 0);
}

TEST_F(Adapter, TimelineWithoutSequence) {
  const struct {
    const char* what;
    MediaTimeRange range;
    bool available;
    QStringView name;
    double start;
    double duration;
  } cases[] = {
      {"ten seconds", {ms(2000), ms(10'000)}, true, u"ACTIVE TIMELINE", 2, 10},
      {"length 0", {ms(2000), ms(0)}, false, u"NO SEQUENCE", 2, 0},
      {"no length", {ms(2000), MediaTime()}, false, u"NO SEQUENCE", 0, 0},
      {"no start", {MediaTime(), ms(1000)}, false, u"NO SEQUENCE", 0, 0},
      {"negative", {ms(2000), ms(-1)}, false, u"NO SEQUENCE", 0, 0},
      {"endless", {ms(2000), MediaTime::positiveInfinity()}, false, u"NO SEQUENCE", 2, 0},
      {"indefinite", {ms(2000), MediaTime::indefinite()}, false, u"NO SEQUENCE", 2, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    host->range = c.range;
    host->playhead = ms(500);
    adapter.connect();
    const HostSnapshot& snapshot = state->snapshot;
    EXPECT_TRUE(snapshot.connected);
    EXPECT_EQ(snapshot.sequenceAvailable, c.available);
    EXPECT_EQ(snapshot.sequenceName, c.name.toString());
    EXPECT_EQ(snapshot.sequenceStartSeconds, c.start);
    EXPECT_EQ(snapshot.sequenceDurationSeconds, c.duration);
    EXPECT_EQ(snapshot.fps, 0);
    EXPECT_EQ(snapshot.playheadSeconds, 0.5);
  }
}

TEST_F(Adapter, WithoutHostOrTimeline) {
  host->hasTimeline = false;
  adapter.connect();
  HostSnapshot bare;
  bare.connected = true;
  bare.hostVersion = QStringLiteral("10.7");
  bare.bundleIdentifier = QStringLiteral("com.apple.FinalCut");
  EXPECT_EQ(state->snapshot, bare);
  adapter.refresh(QStringLiteral("home"));
  EXPECT_EQ(state->snapshot, bare);
  EXPECT_THAT(state->notices, IsEmpty());

  host.reset();
  adapter.connect();
  EXPECT_EQ(state->snapshot, HostSnapshot::disconnected());
  EXPECT_THAT(state->notices,
              ElementsAre(QStringLiteral("error: Final Cut Pro host proxy bulunamadı.")));
  state->snapshot.connected = true;
  adapter.refresh(QStringLiteral("home"));
  EXPECT_EQ(state->snapshot, HostSnapshot::disconnected());
  EXPECT_THAT(lines, IsEmpty());
  EXPECT_EQ(state->notices.size(), 1);
}

TEST_F(Adapter, ObservesOneHostOnce) {
  adapter.connect();
  adapter.connect();
  EXPECT_EQ(host->observers.size(), 1);
  const auto first = std::exchange(host, std::make_shared<ScriptedHost>());
  adapter.connect();
  EXPECT_THAT(first->observers, IsEmpty());
  EXPECT_EQ(host->observers.size(), 1);
  const HostSnapshot last = state->snapshot;
  adapter.disconnect();
  adapter.disconnect();
  EXPECT_THAT(host->observers, IsEmpty());
  EXPECT_EQ(state->snapshot, last);
}

TEST_F(Adapter, MovesAreClamped) {
  const struct {
    std::int64_t start, duration;
    double to;
    MediaTime expected;
  } cases[] = {
      {10'000, 60'000, 5, {6000, 600}},
      {10'000, 60'000, 100, {42'000, 600}},
      {10'000, 60'000, 12.5, {7500, 600}},
      {10'000, 60'000, -kInfinity, {6000, 600}},
      {10'000, 60'000, kInfinity, {42'000, 600}},
      // Where the length is negative there is only the start.
      {10'000, -5000, 0, {6000, 600}},
      {10'000, -5000, 7, {6000, 600}},
      {10'000, -5000, 50, {6000, 600}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.to);
    openSequence(c.start, c.duration);
    adapter.connect();
    adapter.movePlayhead(c.to);
    EXPECT_EQ(host->moves.takeLast(), c.expected);
    EXPECT_EQ(state->snapshot.playheadSeconds, c.expected.seconds());
  }
  EXPECT_THAT(state->notices, IsEmpty());
  EXPECT_TRUE(lines.constLast().contains(u"movePlayhead"));
}

TEST_F(Adapter, RelativeMoves) {
  openSequence(1000, 60'000);
  const struct {
    const char* what;
    void (*move)(FinalCutHostAdapter&);
    MediaTime expected;
  } cases[] = {
      {"start", [](FinalCutHostAdapter& a) { a.moveToStart(); }, {600, 600}},
      {"end", [](FinalCutHostAdapter& a) { a.moveToEnd(); }, {36'600, 600}},
      {"back a second", [](FinalCutHostAdapter& a) { a.moveBy(-1); }, {600, 600}},
      {"on a second", [](FinalCutHostAdapter& a) { a.moveBy(1); }, {1800, 600}},
      {"a frame back", [](FinalCutHostAdapter& a) { a.moveByFrames(-1); }, {1176, 600}},
      {"ten frames on", [](FinalCutHostAdapter& a) { a.moveByFrames(10); }, {1440, 600}},
      {"too far",
       [](FinalCutHostAdapter& a) { a.moveByFrames(std::numeric_limits<qint64>::max()); },
       {36'600, 600}},
  };
  for (const auto& c : cases) {
    host->playhead = ms(2000);
    adapter.connect();
    c.move(adapter);
    EXPECT_EQ(host->moves.takeLast(), c.expected) << c.what;
  }
}

TEST_F(Adapter, MovesThatCannotBe) {
  const auto all = [this] {
    state->notices.clear();
    adapter.moveToStart();
    adapter.moveToEnd();
    adapter.moveBy(1);
    adapter.moveByFrames(1);
    adapter.movePlayhead(1);
    return state->notices;
  };
  const QString none = QStringLiteral("error: Aktif timeline yok.");
  const QString frames = QStringLiteral("info: Final Cut frameDuration henüz hazır değil.");
  const QString proxy = QStringLiteral("error: Final Cut timeline proxy hazır değil.");
  EXPECT_THAT(all(), ElementsAre(none, none, none, frames, proxy));
  EXPECT_EQ(state->snapshot, HostSnapshot::disconnected());

  // A range without a sequence can be moved in, but not by frames.
  host->range = {ms(0), ms(10'000)};
  adapter.connect();
  EXPECT_THAT(all(), ElementsAre(frames));
  EXPECT_EQ(host->moves.size(), 4);
}

TEST_F(Adapter, TimelineCommands) {
  const struct {
    QStringView action;
    bool opens;
    QStringView url;
    QStringView notice;
  } cases[] = {
      {u"toggle-retime", true, u"vantrelo-finalcut://timeline-action?action=toggle-retime",
       u"info: Retime Editor komutu Final Cut'a gönderildi."},
      {u"blade-speed", true, u"vantrelo-finalcut://timeline-action?action=blade-speed",
       u"info: Playhead konumuna Speed Point eklendi."},
      {u"normal-speed", true, u"vantrelo-finalcut://timeline-action?action=normal-speed",
       u"info: Seçili klip Normal Speed %100 yapıldı."},
      {u"blade-speed", false, u"vantrelo-finalcut://timeline-action?action=blade-speed",
       u"error: Vantrelo yardımcı motoru açılamadı."},
      {u"Toggle-Retime", true, {}, u"error: Geçersiz timeline komutu."},
      {u"blade-speed ", true, {}, u"error: Geçersiz timeline komutu."},
      {u"", true, {}, u"error: Geçersiz timeline komutu."},
  };
  for (const auto& c : cases) {
    opened.clear();
    state->notices.clear();
    opens = c.opens;
    adapter.performTimelineAction(c.action.toString());
    EXPECT_EQ(opened, c.url.isNull() ? QStringList() : QStringList{c.url.toString()});
    EXPECT_THAT(state->notices, ElementsAre(c.notice.toString()));
  }
}

TEST_F(Adapter, CallbacksFromManyThreads) {
  openSequence(0, 60'000);
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
  ASSERT_TRUE(waitUntil([this] { return state->snapshot.playheadSeconds == 7; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(host->reads - readsBefore, 3) << "one refresh for each kind of callback";
  EXPECT_EQ(lines.filter(QStringLiteral("playheadTimeChanged")).size(), 1);

  // After the flood, one more change is told again.
  host->playhead = ms(8000);
  adapter.playheadTimeChanged();
  EXPECT_TRUE(waitUntil([this] { return state->snapshot.playheadSeconds == 8; }));
}

TEST_F(Adapter, StateMayGoFirst) {
  openSequence(0, 60'000);
  adapter.connect();
  state.reset();
  adapter.refresh(QStringLiteral("home"));
  adapter.moveToEnd();
  // Without the state, the sequence counts as empty: its only place is zero.
  adapter.movePlayhead(5);
  EXPECT_EQ(host->moves.constLast(), MediaTime(0, 600));
}

}  // namespace
