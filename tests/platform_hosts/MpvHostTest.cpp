#include "platform/hosts/FrameRate.h"
#include "platform/hosts/MpvHostRuntime.h"
#include "platform_hosts/Panel.h"
#include "support/MpvPlayer.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace orvex;

namespace {

// A player with a file, the runtime that found it and a panel connected to it.
class Session {
 public:
  explicit Session(const QStringList& arguments)
      : player(arguments), runtime(player.socketPath()), panel(runtime) {
    EXPECT_TRUE(panel.ready());
  }

  // The player's own position, once it has shown what it was asked for.
  [[nodiscard]] double position() {
    return player.property(QStringLiteral("time-pos")).toDouble(-1);
  }

  // The frame that the player shows, or -1 while it does not stand on one.
  [[nodiscard]] std::int64_t frame(const FrameRate& rate) {
    const double position = this->position();
    const std::int64_t frame = rate.frameNearest(position);
    return std::abs(position - rate.timeOfFrame(frame).seconds()) < 0.001 ? frame : -1;
  }

  [[nodiscard]] bool lands(const FrameRate& rate, std::int64_t expected) {
    return waitUntil([&] { return frame(rate) == expected; }, std::chrono::seconds(5));
  }

  MpvPlayer player;
  MpvHostRuntime runtime;
  Panel panel;
};

struct Clip {
  const char* rate;
  FrameRate exact;
  std::int64_t frames;

  friend void PrintTo(const Clip& clip, std::ostream* stream) { *stream << clip.rate; }
};

class RealPlayer : public testing::TestWithParam<Clip> {};

TEST_P(RealPlayer, StepsLandOnEveryFrame) {
  const auto& [text, rate, frames] = GetParam();
  Session session({testClip(QString::fromLatin1(text))});
  const HostSnapshot& snapshot = session.panel.snapshot;
  EXPECT_EQ(snapshot.hostName, QStringLiteral("mpv"));
  EXPECT_EQ(snapshot.frameDurationSeconds, rate.frameDuration().seconds());
  EXPECT_EQ(snapshot.sequenceDurationSeconds, rate.timeOfFrame(frames).seconds());
  for (std::int64_t k = 1; k < frames; ++k) {
    session.panel.adapter.moveByFrames(1);
    ASSERT_EQ(snapshot.playheadSeconds, rate.timeOfFrame(k).seconds());
    ASSERT_TRUE(session.lands(rate, k)) << "frame " << k << ", at " << session.position();
  }
  // Past the last frame there is nothing.
  session.panel.adapter.moveByFrames(1);
  session.panel.adapter.moveToEnd();
  EXPECT_EQ(snapshot.playheadSeconds, rate.timeOfFrame(frames - 1).seconds());
  for (const std::int64_t k : {frames - 2, frames / 2, frames / 2 - 1, std::int64_t{1}}) {
    session.panel.adapter.movePlayhead(rate.timeOfFrame(k).seconds());
    EXPECT_TRUE(session.lands(rate, k)) << "frame " << k << ", at " << session.position();
  }
  session.panel.adapter.moveToEnd();
  EXPECT_TRUE(session.lands(rate, frames - 1));
  session.panel.adapter.moveToStart();
  EXPECT_TRUE(session.lands(rate, 0));
}

INSTANTIATE_TEST_SUITE_P(
    MpvHost, RealPlayer,
    testing::Values(Clip{"24000/1001", {24000, 1001}, 240}, Clip{"25", {25, 1}, 250},
                    Clip{"30000/1001", {30000, 1001}, 300}, Clip{"60000/1001", {60000, 1001}, 600}),
    [](const auto& clip) { return "Rate" + std::to_string(clip.param.frames); });

// Frames shorter than the player's tolerance, in a container that does not store the length of the
// last one.
TEST(MpvHost, LandsOnShortFrames) {
  const FrameRate rate{240, 1};
  Session session({testClip(QStringLiteral("240"), QStringLiteral("nut"))});
  for (std::int64_t k = 1; k < 240; ++k) {
    session.panel.adapter.moveByFrames(1);
    ASSERT_TRUE(session.lands(rate, k)) << "frame " << k << ", at " << session.position();
  }
  session.panel.adapter.moveToEnd();
  EXPECT_TRUE(session.lands(rate, 2399));
  ASSERT_TRUE(waitUntil(
      [&] { return session.panel.snapshot.playheadSeconds == rate.timeOfFrame(2399).seconds(); }));
  session.panel.adapter.moveByFrames(-1);
  EXPECT_TRUE(session.lands(rate, 2398));
}

TEST(MpvHost, AFloodOfStepsAddsUp) {
  const FrameRate rate{30000, 1001};
  Session session({testClip(QStringLiteral("30000/1001"))});
  CountingObserver observer;
  FCPXTimeline* timeline = session.runtime.hostSingleton()->timeline();
  timeline->addTimelineObserver(&observer);
  for (int i = 0; i < 50; ++i) {
    session.panel.adapter.moveByFrames(1);
    if (i % 10 == 9) QCoreApplication::processEvents();
  }
  EXPECT_EQ(timeline->playheadTime(), rate.timeOfFrame(50));
  EXPECT_TRUE(session.lands(rate, 50));
  ASSERT_TRUE(waitUntil([&] { return observer.playheads > 0; }));
  for (int i = 0; i < 20; ++i) session.panel.adapter.moveByFrames(-1);
  EXPECT_TRUE(session.lands(rate, 30));
  timeline->removeTimelineObserver(&observer);
}

TEST(MpvHost, FollowsThePlayer) {
  Session session({testClip(QStringLiteral("25"))});
  const HostSnapshot& snapshot = session.panel.snapshot;
  // Moved by somebody else.
  session.player.command({QStringLiteral("seek"), 3, QStringLiteral("absolute+exact")});
  EXPECT_TRUE(waitUntil([&] { return snapshot.playheadSeconds == 3; }));
  // Played: told no more often than sixty times a second.
  CountingObserver observer;
  FCPXTimeline* timeline = session.runtime.hostSingleton()->timeline();
  timeline->addTimelineObserver(&observer);
  QElapsedTimer time;
  time.start();
  session.player.command({QStringLiteral("set_property"), QStringLiteral("speed"), 10});
  session.player.command({QStringLiteral("set_property"), QStringLiteral("pause"), false});
  EXPECT_TRUE(waitUntil([&] { return snapshot.playheadSeconds > 5; }));
  EXPECT_LE(observer.all(), time.elapsed() / 16 + 1);
  timeline->removeTimelineObserver(&observer);
  session.player.command({QStringLiteral("set_property"), QStringLiteral("pause"), true});
  // Another file, then none. A move that is under way then comes to its end.
  session.panel.adapter.moveToStart();
  session.player.command({QStringLiteral("loadfile"), testClip(QStringLiteral("24000/1001"))});
  EXPECT_TRUE(waitUntil([&] {
    return snapshot.frameDurationSeconds == 1001.0 / 24000 && snapshot.playheadSeconds == 0 &&
           snapshot.sequenceDurationSeconds == 10.01;
  }));
  EXPECT_EQ(snapshot.sequenceName, QStringLiteral("24000-1001.mpegts"));
  session.player.command({QStringLiteral("stop")});
  EXPECT_TRUE(waitUntil([&] { return !snapshot.sequenceAvailable; }));
  EXPECT_TRUE(snapshot.connected);
  EXPECT_EQ(snapshot.sequenceName, QStringLiteral("NO SEQUENCE"));
  EXPECT_TRUE(session.panel.notices.isEmpty());
}

TEST(MpvHost, GoesAndComesBack) {
  Session session({testClip(QStringLiteral("25"))});
  const HostSnapshot& snapshot = session.panel.snapshot;
  for (int i = 0; i < 2; ++i) {
    session.panel.adapter.movePlayhead(5);
    session.player.kill();
    ASSERT_TRUE(waitUntil([&] { return !snapshot.connected; }));
    EXPECT_EQ(session.runtime.hostSingleton(), nullptr);
    session.player.start();
    ASSERT_TRUE(session.panel.ready());
    EXPECT_EQ(snapshot.playheadSeconds, 0);
  }
  // Asked to leave, it takes its socket with it.
  session.player.command({QStringLiteral("quit")});
  ASSERT_TRUE(waitUntil([&] { return !snapshot.connected; }));
  session.player.kill();
  session.player.start();
  EXPECT_TRUE(session.panel.ready());
}

TEST(MpvHost, IsFoundWhenItsFolderAppears) {
  MpvPlayer player;
  const QTemporaryDir root;
  const QString folder = root.filePath(QStringLiteral("a/b"));
  MpvHostRuntime runtime(folder + QStringLiteral("/s"));
  QCoreApplication::processEvents();
  ASSERT_TRUE(QDir().mkpath(folder));
  QCoreApplication::processEvents();
  ASSERT_TRUE(QFile::link(player.socketPath(), folder + QStringLiteral("/s")));
  EXPECT_TRUE(waitUntil([&] { return runtime.hostSingleton() != nullptr; }));
  EXPECT_FALSE(runtime.hostSingleton()->timeline()->activeSequence());
}

// The second half of a stream: it begins at 4.8 s or so of its own times.
TEST(MpvHost, CountsFromTheBeginningOrFromTheStreamsOwnTimes) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QString(QChar(0x15F)) + QStringLiteral("late.ts"));
  QFile whole(testClip(QStringLiteral("25")));
  QFile half(path);
  ASSERT_TRUE(whole.open(QIODevice::ReadOnly) && half.open(QIODevice::WriteOnly));
  constexpr qint64 kPacket = 188;
  ASSERT_TRUE(whole.seek(whole.size() / kPacket / 2 * kPacket));
  half.write(whole.readAll());
  half.close();
  for (const bool rebase : {true, false}) {
    Session session({rebase ? QStringLiteral("--rebase-start-time=yes")
                            : QStringLiteral("--rebase-start-time=no"),
                     path});
    const HostSnapshot& snapshot = session.panel.snapshot;
    const double origin = session.player.property(QStringLiteral("demuxer-start-time")).toDouble();
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
    session.panel.adapter.moveToStart();
    EXPECT_TRUE(shows(start)) << session.position();
  }
}

TEST(MpvHost, TheEndDoesNotCloseTheFile) {
  const FrameRate rate{25, 1};
  Session session({QStringLiteral("--keep-open=no"), testClip(QStringLiteral("25"))});
  session.panel.adapter.moveToEnd();
  EXPECT_TRUE(session.lands(rate, 249));
  session.panel.adapter.moveByFrames(1);
  session.panel.adapter.moveByFrames(-1);
  EXPECT_TRUE(session.lands(rate, 248));
}

TEST(MpvHost, TakesNamesThatAreNotUtf8) {
  const QTemporaryDir folder;
  const QByteArray path = QFile::encodeName(folder.path()) + "/bad\xff.ts";
  ASSERT_EQ(
      ::symlink(QFile::encodeName(testClip(QStringLiteral("25"))).constData(), path.constData()),
      0);
  // A list of names, because the process's arguments are texts here.
  QFile list(folder.filePath(QStringLiteral("list.m3u")));
  ASSERT_TRUE(list.open(QIODevice::WriteOnly));
  list.write(path + '\n');
  list.close();
  {
    Session session({QStringLiteral("--playlist=") + list.fileName()});
    EXPECT_EQ(session.panel.snapshot.sequenceName, QStringLiteral("bad\uFFFD.ts"));
  }
  // The folder's own cleaning cannot name it either.
  EXPECT_EQ(::unlink(path.constData()), 0);
}

}  // namespace
