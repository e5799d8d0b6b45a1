#include "platform/hosts/FrameRate.h"
#include "platform/hosts/MpvHostRuntime.h"
#include "support/MpvPlayer.h"
#include "support/Panel.h"

namespace {

// A player with a file, the runtime that found it and a panel connected to it.
struct Session {
  explicit Session(const QStringList& arguments)
      : player(arguments), runtime(player.socketPath()), panel(runtime) {
    EXPECT_TRUE(panel.ready());
  }

  [[nodiscard]] double position() { return player.property(u"time-pos"_s).toDouble(-1); }

  // Whether the player comes to stand on a frame.
  [[nodiscard]] testing::AssertionResult lands(const FrameRate& rate, std::int64_t frame) {
    const double wanted = rate.timeOfFrame(frame).seconds();
    if (waitUntil([&] { return std::abs(position() - wanted) < 0.001; }, 5s))
      return testing::AssertionSuccess();
    return testing::AssertionFailure() << "frame " << frame << ", at " << position();
  }

  MpvPlayer player;
  MpvHostRuntime runtime;
  Panel panel;
};

struct Clip {
  QString file;
  FrameRate rate;
  std::int64_t frames;

  friend void PrintTo(const Clip& clip, std::ostream* stream) {
    *stream << QFileInfo(clip.file).fileName();
  }
};

class RealPlayer : public testing::TestWithParam<Clip> {};

TEST_P(RealPlayer, StepsLandOnEveryFrame) {
  const auto& [file, rate, frames] = GetParam();
  // Nor does the end close the file, whatever the player was told.
  Session session({u"--keep-open=no"_s, file});
  const HostSnapshot& snapshot = session.panel.snapshot;
  EXPECT_EQ(snapshot.frameDurationSeconds, rate.frameDuration().seconds());
  EXPECT_EQ(snapshot.sequenceDurationSeconds, rate.timeOfFrame(frames).seconds());
  for (std::int64_t k = 1; k < frames; ++k) {
    session.panel.adapter.moveByFrames(1);
    ASSERT_EQ(snapshot.playheadSeconds, rate.timeOfFrame(k).seconds());
    ASSERT_TRUE(session.lands(rate, k));
  }
  // Past the last frame there is nothing.
  session.panel.adapter.moveToEnd();
  EXPECT_EQ(snapshot.playheadSeconds, rate.timeOfFrame(frames - 1).seconds());
  EXPECT_TRUE(session.lands(rate, frames - 1));
  session.panel.adapter.movePlayhead(rate.timeOfFrame(frames / 2).seconds());
  EXPECT_TRUE(session.lands(rate, frames / 2));
  session.panel.adapter.moveToStart();
  EXPECT_TRUE(session.lands(rate, 0));
}

INSTANTIATE_TEST_SUITE_P(MpvHost, RealPlayer,
                         testing::Values(Clip{testClip(u"24000/1001"_s), {24000, 1001}, 240},
                                         Clip{testClip(u"25"_s), {25, 1}, 250},
                                         Clip{testClip(u"30000/1001"_s), {30000, 1001}, 300},
                                         Clip{testClip(u"60000/1001"_s), {60000, 1001}, 600}));

// Frames shorter than the player's tolerance, in a container that does not store the length of the
// last one.
TEST(MpvHost, LandsOnShortFrames) {
  Session session({testClip(u"240"_s, u"nut"_s)});
  for (std::int64_t k = 1; k < 100; ++k) {
    session.panel.adapter.moveByFrames(1);
    ASSERT_TRUE(session.lands({240, 1}, k));
  }
  session.panel.adapter.moveToEnd();
  EXPECT_TRUE(session.lands({240, 1}, 2399));
}

TEST(MpvHost, AFloodOfStepsAddsUp) {
  Session session({testClip(u"30000/1001"_s)});
  for (int i = 0; i < 50; ++i) {
    session.panel.adapter.moveByFrames(1);
    if (i % 10 == 9) QCoreApplication::processEvents();
  }
  EXPECT_TRUE(session.lands({30000, 1001}, 50));
}

TEST(MpvHost, FollowsThePlayer) {
  Session session({testClip(u"25"_s)});
  const HostSnapshot& snapshot = session.panel.snapshot;
  // Moved by somebody else.
  session.player.command({u"seek"_s, 3, u"absolute+exact"_s});
  EXPECT_TRUE(waitUntil([&] { return snapshot.playheadSeconds == 3; }));
  // Played: told no more often than sixty times a second.
  CountingObserver observer;
  FCPXTimeline* timeline = session.runtime.hostSingleton()->timeline();
  timeline->addTimelineObserver(&observer);
  QElapsedTimer time;
  time.start();
  session.player.command({u"set_property"_s, u"speed"_s, 10});
  session.player.command({u"set_property"_s, u"pause"_s, false});
  EXPECT_TRUE(waitUntil([&] { return snapshot.playheadSeconds > 5; }));
  EXPECT_LE(observer.all(), time.elapsed() / 16 + 1);
  timeline->removeTimelineObserver(&observer);
  session.player.command({u"set_property"_s, u"pause"_s, true});
  // Another file, then none. A move that is under way then comes to its end.
  session.panel.adapter.moveToStart();
  session.player.command({u"loadfile"_s, testClip(u"24000/1001"_s)});
  EXPECT_TRUE(waitUntil([&] {
    return snapshot.frameDurationSeconds == 1001.0 / 24000 && snapshot.playheadSeconds == 0 &&
           snapshot.sequenceDurationSeconds == 10.01;
  }));
  EXPECT_EQ(snapshot.sequenceName, u"24000-1001.mpegts"_s);
  session.player.command({u"stop"_s});
  EXPECT_TRUE(waitUntil([&] { return !snapshot.sequenceAvailable; }));
  EXPECT_TRUE(snapshot.connected);
}

TEST(MpvHost, GoesAndComesBack) {
  Session session({testClip(u"25"_s)});
  const HostSnapshot& snapshot = session.panel.snapshot;
  // Asked to leave, it takes its socket with it; killed, it leaves it behind.
  for (const bool quits : {true, false}) {
    session.panel.adapter.movePlayhead(5);
    if (quits)
      session.player.command({u"quit"_s});
    else
      session.player.kill();
    ASSERT_TRUE(waitUntil([&] { return !snapshot.connected; }));
    EXPECT_EQ(session.runtime.hostSingleton(), nullptr);
    session.player.kill();
    session.player.start();
    ASSERT_TRUE(session.panel.ready());
    EXPECT_EQ(snapshot.playheadSeconds, 0);
  }
}

TEST(MpvHost, IsFoundWhenItsFolderAppears) {
  MpvPlayer player;
  const QTemporaryDir root;
  const QString folder = root.filePath(u"a/b"_s);
  MpvHostRuntime runtime(folder + u"/s"_s);
  QCoreApplication::processEvents();
  ASSERT_TRUE(QDir().mkpath(folder));
  QCoreApplication::processEvents();
  ASSERT_TRUE(QFile::link(player.socketPath(), folder + u"/s"_s));
  EXPECT_TRUE(waitUntil([&] { return runtime.hostSingleton() != nullptr; }));
  EXPECT_FALSE(runtime.hostSingleton()->timeline()->activeSequence());
}

// The second half of a stream: it begins at 4.8 s or so of its own times.
TEST(MpvHost, CountsFromTheBeginningOrFromTheStreamsOwnTimes) {
  const QTemporaryDir folder;
  QFile whole(testClip(u"25"_s));
  QFile half(folder.filePath(u"\u015Flate.ts"_s));
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly) && half.open(QIODevice::WriteOnly));
  constexpr qint64 kPacket = 188;
  ASSERT_TRUE(whole.seek(whole.size() / kPacket / 2 * kPacket));
  half.write(whole.readAll());
  half.close();
  for (const bool rebase : {true, false}) {
    Session session(
        {rebase ? u"--rebase-start-time=yes"_s : u"--rebase-start-time=no"_s, half.fileName()});
    const HostSnapshot& snapshot = session.panel.snapshot;
    const double origin = session.player.property(u"demuxer-start-time"_s).toDouble();
    ASSERT_GT(origin, 1);
    const double start = rebase ? 0 : origin;
    EXPECT_NEAR(snapshot.sequenceStartSeconds, start, 1e-6);
    const auto shows = [&](double seconds) {
      return waitUntil([&] {
        return std::abs(session.position() - seconds) < 1e-3 &&
               std::abs(snapshot.playheadSeconds - seconds) < 1e-3;
      });
    };
    EXPECT_TRUE(shows(start));
    session.panel.adapter.moveByFrames(30);
    EXPECT_TRUE(shows(start + 1.2)) << session.position();
    session.panel.adapter.moveToEnd();
    EXPECT_TRUE(shows(start + snapshot.sequenceDurationSeconds - 0.04)) << session.position();
  }
}

}  // namespace
