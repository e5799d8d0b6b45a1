#include "HostRequest.h"
#include "support/MpvPlayer.h"
#include "support/Wait.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gmock/gmock.h>
#include <unistd.h>

using namespace orvex;
using namespace Qt::StringLiterals;
using Verb = HostRequest::Verb;

namespace {

QStringList words(const char* text) {
  return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts);
}

TEST(HostRequest, Reads) {
  const struct {
    const char* arguments;
    HostRequest request;
  } cases[] = {
      {"", {}},
      {"--json", {.json = true}},
      {"status", {}},
      {"--json start", {.verb = Verb::Start, .json = true}},
      {"end", {.verb = Verb::End}},
      {"seconds 2.5", {.verb = Verb::Seconds, .seconds = 2.5}},
      {"seconds -0.5 --json", {.verb = Verb::Seconds, .seconds = -0.5, .json = true}},
      {"seconds --json 1e3", {.verb = Verb::Seconds, .seconds = 1000, .json = true}},
      {"frames -1", {.verb = Verb::Frames, .frames = -1}},
      {"frames +12", {.verb = Verb::Frames, .frames = 12}},
      {"action blade-speed", {.verb = Verb::Action, .action = u"blade-speed"_s}},
  };
  for (const auto& c : cases) {
    const auto request = HostRequest::parse(words(c.arguments));
    ASSERT_TRUE(request) << c.arguments;
    EXPECT_EQ(*request, c.request) << c.arguments;
  }
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

// The program as a user runs it.
class Program : public testing::Test {
 protected:
  struct Outcome {
    int exitCode = -1;
    QString output;
    QString errors;
    [[nodiscard]] QJsonObject json() const {
      return QJsonDocument::fromJson(output.toUtf8()).object();
    }
  };

  [[nodiscard]] Outcome run(const QString& host, const QStringList& arguments) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ORVEX_HOST"_s, host);
    // Nobody here owns the companion's scheme.
    for (const auto& variable :
         {u"XDG_DATA_HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_DIRS"_s, u"XDG_CONFIG_DIRS"_s})
      environment.insert(variable, home_.path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVEX_PROGRAM), arguments);
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }
  [[nodiscard]] Outcome host(const QString& host, const char* arguments) const {
    return run(host, QStringList{u"host"_s} + words(arguments));
  }

 private:
  QTemporaryDir home_;
};

TEST_F(Program, MovesARealPlayer) {
  MpvPlayer player({testClip(u"24000/1001"_s)});
  const QString choice = u"mpv:"_s + player.socketPath();
  constexpr double kFrame = 1001.0 / 24000;
  const struct {
    const char* arguments;
    int frame;
  } cases[] = {
      {"--json", 0},       {"frames 5 --json", 5},   {"frames -1 --json", 4},
      {"end --json", 239}, {"frames 1 --json", 239}, {"seconds -0.5 --json", 227},
      {"start --json", 0}, {"seconds 2 --json", 48}, {"frames -1000 --json", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.arguments);
    const Outcome outcome = host(choice, c.arguments);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, QString());
    EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), c.frame * kFrame, 1e-3);
    EXPECT_NEAR(outcome.json().value(u"playheadSeconds").toDouble(-1), c.frame * kFrame, 1e-9);
  }
  const QJsonObject fields = host(choice, "--json").json();
  EXPECT_EQ(fields.keys().join(u' '),
            u"bundleIdentifier connected fps frameDurationSeconds hostName hostVersion "
            "playheadSeconds sequenceAvailable sequenceDurationSeconds sequenceName "
            "sequenceStartSeconds"_s);
  EXPECT_EQ(fields.value(u"sequenceDurationSeconds"), 10.01);
  EXPECT_EQ(fields.value(u"hostName"), u"mpv"_s);
  EXPECT_EQ(fields.value(u"connected"), true);

  const Outcome table = host(choice, "seconds 1");
  EXPECT_TRUE(table.output.contains(u"Playhead     00:00:01.000  (1.001000 s)"))
      << table.output.toStdString();

  // The companion is not there, and the text says so; the player's state is no excuse.
  const Outcome action = host(choice, "action blade-speed");
  EXPECT_EQ(action.exitCode, 1);
  EXPECT_EQ(action.errors, u"Vantrelo yardımcı motoru açılamadı.\n"_s);
  EXPECT_EQ(action.output, QString());

  player.command({u"stop"_s});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"idle-active"_s).toBool(); }));
  const Outcome idle = host(choice, "status --json");
  EXPECT_EQ(idle.exitCode, 0);
  EXPECT_EQ(idle.json().value(u"sequenceName"), u"NO SEQUENCE"_s);
  EXPECT_EQ(host(choice, "end").errors, u"Aktif timeline yok.\n"_s);
  EXPECT_EQ(host(choice, "frames 1").errors, u"Final Cut frameDuration henüz hazır değil.\n"_s);
  EXPECT_EQ(host(choice, "frames 1").exitCode, 1);
}

TEST_F(Program, WaitsForAPlayerThatIsOnItsWay) {
  MpvPlayer player({testClip(u"25"_s)});
  player.kill();
  ASSERT_EQ(::unlink(qPrintable(player.socketPath())), 0);
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"ORVEX_HOST"_s, u"mpv:"_s + player.socketPath());
  process.setProcessEnvironment(environment);
  process.start(QStringLiteral(ORVEX_PROGRAM), {u"host"_s, u"frames"_s, u"10"_s});
  ASSERT_TRUE(process.waitForStarted());
  player.start();
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), 0.4, 1e-3);
}

TEST_F(Program, SaysWhatIsWrong) {
  const QString builtIn = u"builtin:50"_s;
  const struct {
    const char* what;
    QString host;
    const char* arguments;
    int exitCode;
    QString error;
  } cases[] = {
      {"no host", u"none"_s, "host", 1, u"Final Cut Pro host proxy bulunamadı.\n"_s},
      {"no player", u"mpv:/nonexistent/s"_s, "host end", 1,
       u"Final Cut Pro host proxy bulunamadı.\n"_s},
      {"unknown host", u"vlc"_s, "host", 2, u"ORVEX_HOST: "_s},
      {"long path", u"mpv:/"_s + QString(200, u'x'), "host", 2, u"çok uzun"_s},
      {"unknown action", builtIn, "host action Toggle-Retime", 1, u"Geçersiz timeline komutu.\n"_s},
      {"unknown verb", builtIn, "host jump", 2, u"\"jump\" anlaşılmadı."_s},
      {"unknown command", builtIn, "dance", 2, u"\"dance\" diye bir komut yok."_s},
      {"no command", builtIn, "", 2, u"orvex host [status|"_s},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const Outcome outcome = run(c.host, words(c.arguments));
    EXPECT_EQ(outcome.exitCode, c.exitCode);
    EXPECT_TRUE(outcome.errors.contains(c.error)) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output, QString());
  }
  const Outcome help = run(builtIn, {u"--help"_s});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.output.contains(HostRequest::usage()));
  EXPECT_TRUE(run(builtIn, {u"--version"_s}).output.startsWith(u"orvex 0."));
  const Outcome builtInEnd = host(builtIn, "end --json");
  EXPECT_EQ(builtInEnd.json().value(u"playheadSeconds"), 60);
  EXPECT_EQ(builtInEnd.json().value(u"fps"), 50);
}

}  // namespace
