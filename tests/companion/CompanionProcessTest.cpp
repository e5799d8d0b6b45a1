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
using namespace Qt::StringLiterals;

namespace {

const QString kFocus = u"vantrelo-finalcut://focus-panel"_s;

QString actionUrl(const QString& action) {
  return u"vantrelo-finalcut://timeline-action?action="_s + action;
}

class Panel final : public PanelEndpoint {
 public:
  bool focusPanel() override {
    calls.append(u"focus"_s);
    return true;
  }
  QString hostInUse() override { return host; }
  bool performOnBuiltInHost(const QString& action) override {
    calls.append(action);
    return hasBuiltInHost;
  }

  QString host = u"builtin"_s;
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
  EXPECT_EQ(run({u"--version"_s}).output, u"orvex-companion " PROJECT_VERSION "\n");
  const Result help = run({u"--help"_s});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.output.contains(u"--register"));

  const struct {
    QStringList arguments;
    const char16_t* error;
  } rows[] = {
      {{}, u"kullanım"},
      {{QString()}, u"kullanım"},
      {{u"--registers"_s}, u"kullanım"},
      {{u"--register"_s, kFocus}, u"kullanım"},
      {{kFocus, kFocus}, u"kullanım"},
      {{kFocus + u'/'}, u"Adres reddedildi"},
      {{u"vantrelo-finalcut://focus-pan\u00e9l"_s}, u"ASCII"},
      {{actionUrl(u"Blade-Speed"_s)}, u"\"Blade-Speed\""},
  };
  for (const auto& row : rows) {
    const Result result = run(row.arguments);
    EXPECT_EQ(result.exitCode, 2) << qPrintable(row.arguments.join(u' '));
    EXPECT_TRUE(result.errors.contains(QString::fromUtf16(row.error))) << qPrintable(result.errors);
    EXPECT_EQ(result.output, QString());
  }
  qputenv("ORVEX_HOST", "vlc");
  EXPECT_EQ(run({actionUrl(u"blade-speed"_s)}).exitCode, 2);
  EXPECT_EQ(panel_.calls, QStringList());
}

TEST_F(CompanionProcess, PerformsOnThePanelOrSaysWhyNot) {
  const QString blade = actionUrl(u"blade-speed"_s);
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
      {true, kFocus, "none", u"none", false, 0, u"öne getirildi", u"focus"_s},
      {true, blade, "", u"builtin:24", true, 0, u"\"blade-speed\"", u"blade-speed"_s},
      {true, blade, "builtin", u"none", true, 0, u"uygulandı", u"blade-speed"_s},
      {true, blade, "builtin", u"none", false, 1, u"uygulanamadı", u"blade-speed"_s},
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
    const QString what = u"%1 %2 %3"_s.arg(row.url, QLatin1String(row.variable), panel_.host);
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
  const QString entry = home(u"data/applications/com.vantrelo.orvex.finalcut.desktop"_s);
  const QString associations = home(u"config/mimeapps.list"_s);
  QByteArray before;
  for (int i = 0; i < 3; ++i) {
    const Result result = run({u"--register"_s});
    ASSERT_EQ(result.exitCode, 0) << qPrintable(result.errors);
    const QByteArray after = contents(entry) + contents(associations);
    if (i == 0) before = after;
    EXPECT_EQ(after.toStdString(), before.toStdString());
  }
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_TRUE(platform_->workspace().open(QUrl(actionUrl(u"normal-speed"_s))));
  EXPECT_TRUE(waitUntil([&] { return !panel_.calls.isEmpty(); }));
  EXPECT_EQ(panel_.calls, QStringList{u"normal-speed"_s});

  for (int i = 0; i < 2; ++i) {
    const Result result = run({u"--unregister"_s});
    EXPECT_EQ(result.exitCode, 0) << qPrintable(result.errors);
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_FALSE(contents(associations).contains("vantrelo"));
  }
}

TEST_F(CompanionProcess, GivesAPlayerItsCommands) {
  MpvPlayer player({u"--start=2"_s, testClip(u"25"_s)});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"time-pos"_s).isDouble(); }));
  const QString chapters = u"chapter-list"_s;
  const QString speed = u"speed"_s;

  qputenv("ORVEX_HOST", "mpv:" + QFile::encodeName(player.socketPath()));
  const qsizetype before = player.property(chapters).toArray().size();
  const Result blade = run({actionUrl(u"blade-speed"_s)});
  EXPECT_EQ(blade.exitCode, 0) << qPrintable(blade.errors);
  const QJsonArray after = player.property(chapters).toArray();
  ASSERT_EQ(after.size(), before + 1);
  EXPECT_DOUBLE_EQ(after.last().toObject().value(u"time").toDouble(),
                   player.property(u"time-pos"_s).toDouble());

  player.command({u"set_property"_s, speed, 2.5});
  // Without the variable the panel says which player it is.
  qunsetenv("ORVEX_HOST");
  panel_.host = u"mpv:"_s + player.socketPath();
  ASSERT_TRUE(platform_->exportPanel(panel_));
  const Result retime = run({actionUrl(u"toggle-retime"_s)});
  EXPECT_EQ(retime.exitCode, 0) << qPrintable(retime.errors);
  EXPECT_TRUE(retime.output.contains(u"%250")) << qPrintable(retime.output);
  EXPECT_EQ(player.property(speed).toDouble(), 2.5);
  EXPECT_EQ(run({actionUrl(u"normal-speed"_s)}).exitCode, 0);
  EXPECT_EQ(player.property(speed).toDouble(), 1);
  EXPECT_EQ(panel_.calls, QStringList());
}

}  // namespace
