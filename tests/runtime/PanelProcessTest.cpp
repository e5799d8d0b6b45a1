// The panel as a process: what a person, a script or the companion meets.
#include "runtime/PanelOptions.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

#include <QImage>
#include <QSettings>

#include <csignal>

namespace {

struct PanelProcess : testing::Test {
  // Without a display.
  PanelProcess() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("ORVEX_HOST", "builtin");
  }

  [[nodiscard]] static ProgramResult run(const QString& program, const QStringList& arguments) {
    return runProgram(QStringLiteral(PROGRAMS) + u'/' + program, arguments);
  }
};

TEST_F(PanelProcess, SavesAPageOfTheSizeAskedFor) {
  EXPECT_EQ(run(u"orvex-panel"_s, {u"--size"_s, u"x"_s}).exitCode, 2);
  const QTemporaryDir folder;
  const QString file = folder.filePath(u"page.png"_s);
  QStringList arguments{u"--page"_s,  u"timeline"_s,     u"--size"_s,
                        u"700x500"_s, u"--screenshot"_s, file};
  const ProgramResult saved = run(u"orvex-panel"_s, arguments);
  EXPECT_EQ(saved.exitCode, 0) << saved.errors;
  EXPECT_EQ(QImage(file).size(), QSize(700, 500));
  arguments.last() = u"/nonexistent/a.png"_s;
  EXPECT_EQ(run(u"orvex-panel"_s, arguments).exitCode, 1);
}

// What ./run shows the panel with.
TEST_F(PanelProcess, IsGivenTheFoldersOfASampleLibrary) {
  const TemporaryTree library;
  for (const char* folder : {"LUT", "Motion Templates", "FxPlug"}) library.folder(folder);
  const auto grant = [](const QString& folder) {
    return run(u"orvex-samples"_s, {u"grant"_s, folder}).exitCode;
  };
  EXPECT_EQ(grant(library.text("none")), 1);
  EXPECT_EQ(grant(QString::fromUtf8(library.root())), 0);
  EXPECT_EQ(QSettings(u"Vantrelo"_s, u"Vantrelo Orvex"_s).allKeys().size(), 3);
}

TEST(PanelOptions, AreCheckedAsTheVariableIs) {
  const auto parse = [](const QString& line, const QString& variable = {}) {
    return PanelOptions::parse((u"orvex-panel "_s + line).split(u' ', Qt::SkipEmptyParts),
                               variable);
  };
  EXPECT_EQ(parse({}, u"mpv:/tmp/s"_s)->host.socketPath, u"/tmp/s");
  EXPECT_EQ(parse(u"--host none"_s, u"mpv:/tmp/s"_s)->host.kind, HostChoice::Kind::None);
  EXPECT_FALSE(parse({}, u"vlc"_s));
  for (const QString& line :
       {u"--page Home"_s, u"--size 1040"_s, u"--size 319x780"_s, u"--size 99999x780"_s,
        u"--size -5x780"_s, u"--host vlc"_s, u"--nonsense"_s, u"file.mov"_s})
    EXPECT_FALSE(parse(line)) << line;
}

TEST_F(PanelProcess, TheCompanionReachesTheHostOfARunningPanel) {
  QProcess panel;
  panel.start(QStringLiteral(PROGRAMS "/orvex-panel"), QStringList());
  const auto companion = [](const QString& request) {
    return run(u"orvex-companion"_s, {u"vantrelo-finalcut://"_s + request}).exitCode;
  };
  const QString blade = u"timeline-action?action=blade-speed"_s;
  // One that is still starting answers too late.
  for (const QString& request : {blade, u"focus-panel"_s})
    EXPECT_TRUE(waitUntil([&] { return companion(request) == 0; }, 20s));
  // One that hangs is given up, well before anybody gives up the companion.
  ::kill(static_cast<pid_t>(panel.processId()), SIGSTOP);
  QElapsedTimer time;
  time.start();
  EXPECT_EQ(companion(u"focus-panel"_s), 1);
  EXPECT_LT(time.elapsed(), 10'000);
  ::kill(static_cast<pid_t>(panel.processId()), SIGCONT);
  panel.terminate();
  EXPECT_TRUE(panel.waitForFinished());
  EXPECT_EQ(companion(blade), 1) << "no panel any more";
}

}  // namespace
