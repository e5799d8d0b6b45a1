// The panel as a process: what a person, a script or the companion meets.
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

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
      environment.insert(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(folder)),
                         home_.filePath(QLatin1String(folder)));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("ORVEX_HOST"), QStringLiteral("builtin"));
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
  const Result version = run(QStringLiteral("orvex-panel"), {QStringLiteral("--version")});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.output, u"orvex-panel " PROJECT_VERSION "\n");
  EXPECT_EQ(run(QStringLiteral("orvex-panel"), {QStringLiteral("--help")}).exitCode, 0);
  const Result wrong =
      run(QStringLiteral("orvex-panel"), {QStringLiteral("--page"), QStringLiteral("x")});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_TRUE(wrong.errors.contains(u"timeline")) << qPrintable(wrong.errors);
}

TEST_F(Panel, SavesAPageOfTheSizeAskedFor) {
  const QString file = home_.filePath(QStringLiteral("page.png"));
  const QStringList arguments{QStringLiteral("--page"), QStringLiteral("timeline"),
                              QStringLiteral("--size"), QStringLiteral("700x500"),
                              QStringLiteral("--screenshot")};
  const Result saved = run(QStringLiteral("orvex-panel"), arguments + QStringList{file});
  EXPECT_EQ(saved.exitCode, 0) << qPrintable(saved.errors);
  EXPECT_EQ(QImage(file).size(), QSize(700, 500));
  const Result failed = run(QStringLiteral("orvex-panel"),
                            arguments + QStringList{QStringLiteral("/nonexistent/a.png")});
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_TRUE(failed.errors.contains(u"/nonexistent/a.png"));
}

TEST_F(Panel, TheCompanionReachesTheHostOfARunningPanel) {
  QProcess panel;
  prepare(panel);
  panel.start(kPrograms + QStringLiteral("/orvex-panel"), {});
  const QStringList blade{QStringLiteral("vantrelo-finalcut://timeline-action?action=blade-speed")};
  QElapsedTimer timer;
  timer.start();
  Result result{-1, {}, {}};
  while (result.exitCode != 0 && timer.elapsed() < 20000)
    result = run(QStringLiteral("orvex-companion"), blade);
  EXPECT_EQ(result.exitCode, 0) << qPrintable(result.errors);
  EXPECT_EQ(
      run(QStringLiteral("orvex-companion"), {QStringLiteral("vantrelo-finalcut://focus-panel")})
          .exitCode,
      0);
  panel.terminate();
  EXPECT_TRUE(panel.waitForFinished(20000));
  EXPECT_EQ(run(QStringLiteral("orvex-companion"), blade).exitCode, 1) << "no panel any more";
}

}  // namespace
