#include "CommandLine.h"
#include "support/MpvPlayer.h"

TEST_F(CommandLine, MovesARealPlayer) {
  MpvPlayer player({testClip(u"24000/1001"_s)});
  qputenv("ORVEX_HOST", "mpv:" + player.socketPath().toUtf8());
  constexpr double kFrame = 1001.0 / 24000;
  const std::pair<QString, int> rows[] = {
      {u"host --json"_s, 0},       {u"host frames 5 --json"_s, 5},
      {u"host end --json"_s, 239}, {u"host frames 1 --json"_s, 239},
      {u"host start --json"_s, 0}, {u"host seconds --json +2e0"_s, 48},
  };
  for (const auto& [line, frame] : rows) {
    const QJsonDocument host = json(line);
    EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), frame * kFrame, 1e-3) << line;
    EXPECT_NEAR(host[u"playheadSeconds"].toDouble(-1), frame * kFrame, 1e-9) << line;
  }
  const QJsonObject fields = json(u"host --json"_s).object();
  EXPECT_EQ(fields.keys().join(u' '),
            u"bundleIdentifier connected fps frameDurationSeconds hostName hostVersion "
            "playheadSeconds sequenceAvailable sequenceDurationSeconds sequenceName "
            "sequenceStartSeconds"_s);
  EXPECT_EQ(fields.value(u"sequenceDurationSeconds"), 10.01);
  const ProgramResult table = run(u"host start"_s);
  EXPECT_TRUE(table.output.contains(u"Playhead     00:00:00.000  (0.000000 s)")) << table.output;

  player.command({u"stop"_s});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"idle-active"_s).toBool(); }));
  EXPECT_EQ(json(u"host status --json"_s)[u"sequenceName"], u"NO SEQUENCE"_s);
  EXPECT_EQ(run(u"host end"_s).errors, u"Aktif timeline yok.\n"_s);
}

TEST_F(CommandLine, WaitsForAPlayerThatIsOnItsWay) {
  MpvPlayer player({testClip(u"25"_s)});
  player.kill();
  ASSERT_EQ(::unlink(qPrintable(player.socketPath())), 0);
  qputenv("ORVEX_HOST", "mpv:" + player.socketPath().toUtf8());
  QProcess process;
  process.start(QStringLiteral(ORVEX_PROGRAM), words(u"host frames 10"_s));
  ASSERT_TRUE(process.waitForStarted());
  player.start();
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
  EXPECT_NEAR(player.property(u"time-pos"_s).toDouble(-1), 0.4, 1e-3);
}

TEST_F(CommandLine, SaysWhatAHostDoesNotDo) {
  const std::tuple<const char*, QString, int, QString> rows[] = {
      {"none", u"host"_s, 1, u"Final Cut Pro host proxy bulunamadı.\n"_s},
      {"mpv:/nonexistent/s", u"host end"_s, 1, u"--input-ipc-server=/nonexistent/s "_s},
      {"vlc", u"host"_s, 2, u"ORVEX_HOST: "_s},
      {"builtin", u"host action Toggle-Retime"_s, 2,
       u"toggle-retime, blade-speed, normal-speed."_s},
      {"builtin", u"host action blade-speed"_s, 1, u"Vantrelo yardımcı motoru açılamadı.\n"_s},
  };
  for (const auto& [host, line, exitCode, error] : rows) {
    qputenv("ORVEX_HOST", host);
    expectFailure(line, exitCode, error);
  }
}
