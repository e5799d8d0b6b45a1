#include "HostRequest.h"
#include "support/MpvPlayer.h"
#include "support/Program.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <unistd.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

QStringList words(const char* text) {
  return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
}

TEST(HostRequest, Refuses) {
  for (const char* arguments :
       {"stop", "Status", "status x", "start 1", "seconds", "seconds x", "seconds 1,5",
        "seconds nan", "seconds inf", "seconds 1 2", "frames", "frames 1.5",
        "frames 99999999999999999999", "action", "action a b", "--jason", "-1"}) {
    const auto request = HostRequest::parse(words(arguments));
    ASSERT_FALSE(request) << arguments;
    EXPECT_TRUE(request.error().contains(HostRequest::usage())) << arguments;
  }
}

// The program as a user runs it, where nobody owns the companion's scheme.
class Program : public testing::Test {
 protected:
  Program() {
    for (const char* folder :
         {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_DIRS"})
      qputenv(folder, home_.path().toUtf8());
  }

  [[nodiscard]] static ProgramResult run(const QString& host, const char* arguments) {
    qputenv("ORVEX_HOST", host.toUtf8());
    return runProgram(QStringLiteral(ORVEX_PROGRAM), words(arguments));
  }
  [[nodiscard]] static QJsonObject json(const ProgramResult& result) {
    return QJsonDocument::fromJson(result.output.toUtf8()).object();
  }

 private:
  const QTemporaryDir home_;
};

TEST_F(Program, MovesARealPlayer) {
  MpvPlayer player({testClip(u"24000/1001"_s)});
  const QString mpv = u"mpv:"_s + player.socketPath();
  constexpr double kFrame = 1001.0 / 24000;
  const struct {
    const char* arguments;
    int frame;
  } cases[] = {
      {"host --json", 0},       {"host frames 5 --json", 5},      {"host frames -1 --json", 4},
      {"host end --json", 239}, {"host frames 1 --json", 239},    {"host seconds -0.5 --json", 227},
      {"host start --json", 0}, {"host seconds --json +2e0", 48},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.arguments);
    const ProgramResult result = run(mpv, c.arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), c.frame * kFrame, 1e-3);
    EXPECT_NEAR(json(result).value(u"playheadSeconds").toDouble(-1), c.frame * kFrame, 1e-9);
  }
  const QJsonObject fields = json(run(mpv, "host --json"));
  EXPECT_EQ(fields.keys().join(u' '),
            u"bundleIdentifier connected fps frameDurationSeconds hostName hostVersion "
            "playheadSeconds sequenceAvailable sequenceDurationSeconds sequenceName "
            "sequenceStartSeconds"_s);
  EXPECT_EQ(fields.value(u"sequenceDurationSeconds"), 10.01);
  EXPECT_EQ(fields.value(u"hostName"), u"mpv"_s);
  EXPECT_EQ(fields.value(u"connected"), true);
  const ProgramResult table = run(mpv, "host start");
  EXPECT_TRUE(table.output.contains(u"Playhead     00:00:00.000  (0.000000 s)")) << table.output;

  player.command({u"stop"_s});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"idle-active"_s).toBool(); }));
  EXPECT_EQ(json(run(mpv, "host status --json")).value(u"sequenceName"), u"NO SEQUENCE"_s);
  EXPECT_EQ(run(mpv, "host end").errors, u"Aktif timeline yok.\n"_s);
  const ProgramResult frames = run(mpv, "host frames 1");
  EXPECT_EQ(frames.errors, u"Final Cut frameDuration henüz hazır değil.\n"_s);
  EXPECT_EQ(frames.exitCode, 1);
}

TEST_F(Program, WaitsForAPlayerThatIsOnItsWay) {
  MpvPlayer player({testClip(u"25"_s)});
  player.kill();
  ASSERT_EQ(::unlink(qPrintable(player.socketPath())), 0);
  qputenv("ORVEX_HOST", "mpv:" + player.socketPath().toUtf8());
  QProcess process;
  process.start(QStringLiteral(ORVEX_PROGRAM), words("host frames 10"));
  ASSERT_TRUE(process.waitForStarted());
  player.start();
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
  EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), 0.4, 1e-3);
}

TEST_F(Program, SaysWhatIsWrong) {
  const QString builtIn = u"builtin:50"_s;
  const struct {
    QString host;
    const char* arguments;
    int exitCode;
    QString error;
  } cases[] = {
      {u"none"_s, "host", 1, u"Final Cut Pro host proxy bulunamadı.\n"_s},
      {u"mpv:/nonexistent/s"_s, "host end", 1, u"Final Cut Pro host proxy bulunamadı.\n"_s},
      {u"vlc"_s, "host", 2, u"ORVEX_HOST: "_s},
      {builtIn, "host action Toggle-Retime", 2, u"toggle-retime, blade-speed, normal-speed."_s},
      {builtIn, "host action blade-speed", 1, u"Vantrelo yardımcı motoru açılamadı.\n"_s},
      {builtIn, "host jump", 2, u"\"jump\" anlaşılmadı."_s},
      {builtIn, "dance", 2, u"\"dance\" diye bir komut yok."_s},
      {builtIn, "", 2, u"orvex host [status|"_s},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.host << ": " << c.arguments);
    const ProgramResult result = run(c.host, c.arguments);
    EXPECT_EQ(result.exitCode, c.exitCode);
    EXPECT_TRUE(result.errors.contains(c.error)) << result.errors;
    EXPECT_EQ(result.output, QString());
  }
  const ProgramResult help = run(builtIn, "--help");
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.output.contains(HostRequest::usage()));
  EXPECT_TRUE(run(builtIn, "--version").output.startsWith(u"orvex 0."));
  EXPECT_EQ(json(run(builtIn, "host end --json")).value(u"playheadSeconds"), 60);
}

}  // namespace
