// The companion as a process, on a real bus, a real desktop registration and a real player.
#include "platform/PanelEndpoint.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "support/MpvPlayer.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QJsonObject>
#include <QProcess>
#include <QUrl>

using namespace orvex;

namespace {

const QString kFocus = QStringLiteral("vantrelo-finalcut://focus-panel");

QString actionUrl(const QString& action) {
  return QStringLiteral("vantrelo-finalcut://timeline-action?action=") + action;
}

class Panel final : public PanelEndpoint {
 public:
  bool focusPanel() override {
    calls.append(QStringLiteral("focus"));
    return true;
  }
  QString hostInUse() override { return host; }
  bool performOnBuiltInHost(const QString& action) override {
    calls.append(action);
    return hasBuiltInHost;
  }

  QString host = QStringLiteral("builtin");
  bool hasBuiltInHost = true;
  QStringList calls;
};

class CompanionProcess : public PrivateSession {
 protected:
  void SetUp() override {
    PrivateSession::SetUp();
    qunsetenv("ORVEX_HOST");
  }

  struct Result {
    int exitCode = -1;
    QString output;
    QString errors;
  };

  // Runs the companion while the event loop here answers for the panel.
  [[nodiscard]] static Result run(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(ORVEX_COMPANION), arguments);
    EXPECT_TRUE(waitUntil([&] { return process.state() == QProcess::NotRunning; }));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
  Panel panel_;
};

TEST_F(CompanionProcess, AnswersAboutItselfAndRefusesWrongUsageAndAddresses) {
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_EQ(run({QStringLiteral("--version")}).output, u"orvex-companion " PROJECT_VERSION "\n");
  const Result help = run({QStringLiteral("--help")});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.output.contains(u"--register"));

  const struct {
    QStringList arguments;
    const char16_t* error;
  } rows[] = {
      {{}, u"kullanım"},
      {{QString()}, u"kullanım"},
      {{QStringLiteral("--registers")}, u"kullanım"},
      {{QStringLiteral("--register"), kFocus}, u"kullanım"},
      {{kFocus, kFocus}, u"kullanım"},
      {{kFocus + u'/'}, u"Adres reddedildi"},
      {{QStringLiteral("vantrelo-finalcut://focus-pan\u00e9l")}, u"ASCII"},
      {{actionUrl(QStringLiteral("Blade-Speed"))}, u"\"Blade-Speed\""},
  };
  for (const auto& row : rows) {
    const Result result = run(row.arguments);
    EXPECT_EQ(result.exitCode, 2) << qPrintable(row.arguments.join(u' '));
    EXPECT_TRUE(result.errors.contains(QString::fromUtf16(row.error))) << qPrintable(result.errors);
    EXPECT_EQ(result.output, QString());
  }
  qputenv("ORVEX_HOST", "vlc");
  EXPECT_EQ(run({actionUrl(QStringLiteral("blade-speed"))}).exitCode, 2);
  EXPECT_EQ(panel_.calls, QStringList());
}

TEST_F(CompanionProcess, PerformsOnThePanelOrSaysWhyNot) {
  const QString blade = actionUrl(QStringLiteral("blade-speed"));
  const struct {
    bool panelRuns;
    QString url;
    QByteArray variable;
    const char16_t* panelsHost;
    bool hasBuiltInHost;
    int exitCode;
    const char16_t* sentence;
    QString call;
  } rows[] = {
      {false, kFocus, "", u"", false, 1, u"Önce paneli aç", {}},
      {false, blade, "", u"", false, 1, u"Önce paneli aç", {}},
      {false, blade, "builtin", u"", false, 1, u"Önce paneli aç", {}},
      {false, blade, "none", u"", false, 1, u"bir host yok", {}},
      {true, kFocus, "none", u"none", false, 0, u"öne getirildi", QStringLiteral("focus")},
      {true, blade, "", u"builtin:24", true, 0, u"\"blade-speed\"", QStringLiteral("blade-speed")},
      {true, blade, "builtin", u"none", true, 0, u"uygulandı", QStringLiteral("blade-speed")},
      {true, blade, "builtin", u"none", false, 1, u"uygulanamadı", QStringLiteral("blade-speed")},
      {true, blade, "", u"none", true, 1, u"bir host yok", {}},
      {true, blade, "none", u"builtin", true, 1, u"bir host yok", {}},
      {true, blade, "", u"vlc", true, 1, u"vlc", {}},
      {true, blade, "mpv:/nonexistent/mpv.sock", u"builtin", true, 1, u"/nonexistent/mpv.sock", {}},
  };
  for (const auto& row : rows) {
    qputenv("ORVEX_HOST", row.variable);
    panel_.host = QString::fromUtf16(row.panelsHost);
    panel_.hasBuiltInHost = row.hasBuiltInHost;
    panel_.calls.clear();
    if (row.panelRuns) std::ignore = platform_->exportPanel(panel_);
    const Result result = run({row.url});
    const QString what =
        QStringLiteral("%1 %2 %3").arg(row.url, QLatin1String(row.variable), panel_.host);
    EXPECT_EQ(result.exitCode, row.exitCode) << qPrintable(what);
    const QString sentence = row.exitCode == 0 ? result.output : result.errors;
    EXPECT_TRUE(sentence.contains(QString::fromUtf16(row.sentence)))
        << qPrintable(what) << qPrintable(result.errors);
    EXPECT_TRUE(result.errors.contains(u"[Vantrelo Orvex] companion: ")) << "not in the log";
    EXPECT_EQ(panel_.calls, row.call.isEmpty() ? QStringList() : QStringList{row.call})
        << qPrintable(what);
  }
}

TEST_F(CompanionProcess, RegisteredItIsWhatTheDesktopOpensAddressesWith) {
  const QString entry =
      home(QStringLiteral("data/applications/com.vantrelo.orvex.finalcut.desktop"));
  const QString associations = home(QStringLiteral("config/mimeapps.list"));
  QByteArray before;
  for (int i = 0; i < 3; ++i) {
    const Result result = run({QStringLiteral("--register")});
    ASSERT_EQ(result.exitCode, 0) << qPrintable(result.errors);
    const QByteArray after = contents(entry) + contents(associations);
    if (i == 0) before = after;
    EXPECT_EQ(after.toStdString(), before.toStdString());
  }
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_TRUE(platform_->workspace().open(QUrl(actionUrl(QStringLiteral("normal-speed")))));
  EXPECT_TRUE(waitUntil([&] { return !panel_.calls.isEmpty(); }));
  EXPECT_EQ(panel_.calls, QStringList{QStringLiteral("normal-speed")});

  for (int i = 0; i < 2; ++i) {
    const Result result = run({QStringLiteral("--unregister")});
    EXPECT_EQ(result.exitCode, 0) << qPrintable(result.errors);
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_FALSE(contents(associations).contains("vantrelo"));
  }
}

TEST_F(CompanionProcess, GivesAPlayerItsCommands) {
  MpvPlayer player({QStringLiteral("--start=2"), testClip(QStringLiteral("25"))});
  ASSERT_TRUE(waitUntil([&] { return player.property(QStringLiteral("time-pos")).isDouble(); }));
  const QString chapters = QStringLiteral("chapter-list");
  const QString speed = QStringLiteral("speed");

  qputenv("ORVEX_HOST", "mpv:" + QFile::encodeName(player.socketPath()));
  const qsizetype before = player.property(chapters).toArray().size();
  const Result blade = run({actionUrl(QStringLiteral("blade-speed"))});
  EXPECT_EQ(blade.exitCode, 0) << qPrintable(blade.errors);
  const QJsonArray after = player.property(chapters).toArray();
  ASSERT_EQ(after.size(), before + 1);
  EXPECT_DOUBLE_EQ(after.last().toObject().value(u"time").toDouble(),
                   player.property(QStringLiteral("time-pos")).toDouble());

  player.command({QStringLiteral("set_property"), speed, 2.5});
  // Without the variable the panel says which player it is.
  qunsetenv("ORVEX_HOST");
  panel_.host = QStringLiteral("mpv:") + player.socketPath();
  ASSERT_TRUE(platform_->exportPanel(panel_));
  const Result retime = run({actionUrl(QStringLiteral("toggle-retime"))});
  EXPECT_EQ(retime.exitCode, 0) << qPrintable(retime.errors);
  EXPECT_TRUE(retime.output.contains(u"%250")) << qPrintable(retime.output);
  EXPECT_EQ(player.property(speed).toDouble(), 2.5);
  EXPECT_EQ(run({actionUrl(QStringLiteral("normal-speed"))}).exitCode, 0);
  EXPECT_EQ(player.property(speed).toDouble(), 1);
  EXPECT_EQ(panel_.calls, QStringList());
}

}  // namespace
