// The panel as a process: what a person, a script or the companion meets.
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const QString kPrograms = QStringLiteral(PROGRAMS);

class Panel : public testing::Test {
 protected:
  struct Result {
    int exitCode;
    QString output;
    QString errors;
  };

  // A process on a home of its own, without a display.
  void prepare(QProcess& process) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* folder : {"DATA", "CONFIG", "CACHE", "STATE"})
      environment.insert(u"XDG_%1_HOME"_s.arg(QLatin1String(folder)),
                         home_.filePath(QLatin1String(folder)));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    environment.insert(u"ORVEX_HOST"_s, u"builtin"_s);
    process.setProcessEnvironment(environment);
  }

  Result run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    prepare(process);
    process.start(kPrograms + u'/' + program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << qPrintable(program);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  QTemporaryDir home_;
};

TEST_F(Panel, AnswersWithoutADisplay) {
  const Result version = run(u"orvex-panel"_s, {u"--version"_s});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.output, u"orvex-panel " PROJECT_VERSION "\n");
  EXPECT_EQ(run(u"orvex-panel"_s, {u"--help"_s}).exitCode, 0);
  const Result wrong = run(u"orvex-panel"_s, {u"--page"_s, u"x"_s});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_TRUE(wrong.errors.contains(u"timeline")) << qPrintable(wrong.errors);
}

TEST_F(Panel, SavesAPageOfTheSizeAskedFor) {
  const QString file = home_.filePath(u"page.png"_s);
  const QStringList arguments{u"--page"_s, u"timeline"_s, u"--size"_s, u"700x500"_s,
                              u"--screenshot"_s};
  const Result saved = run(u"orvex-panel"_s, arguments + QStringList{file});
  EXPECT_EQ(saved.exitCode, 0) << qPrintable(saved.errors);
  EXPECT_EQ(QImage(file).size(), QSize(700, 500));
  const Result failed = run(u"orvex-panel"_s, arguments + QStringList{u"/nonexistent/a.png"_s});
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_TRUE(failed.errors.contains(u"/nonexistent/a.png"));
}

TEST_F(Panel, TheCompanionReachesTheHostOfARunningPanel) {
  QProcess panel;
  prepare(panel);
  panel.start(kPrograms + u"/orvex-panel"_s, {});
  const QStringList blade{u"vantrelo-finalcut://timeline-action?action=blade-speed"_s};
  QElapsedTimer timer;
  timer.start();
  Result result{-1, {}, {}};
  while (result.exitCode != 0 && timer.elapsed() < 20000) result = run(u"orvex-companion"_s, blade);
  EXPECT_EQ(result.exitCode, 0) << qPrintable(result.errors);
  EXPECT_EQ(run(u"orvex-companion"_s, {u"vantrelo-finalcut://focus-panel"_s}).exitCode, 0);
  panel.terminate();
  EXPECT_TRUE(panel.waitForFinished(20000));
  EXPECT_EQ(run(u"orvex-companion"_s, blade).exitCode, 1) << "no panel any more";
}

}  // namespace
