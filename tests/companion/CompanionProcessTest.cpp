// The companion with a real desktop registration and a real player.
#include "CompanionCase.h"
#include "platform/Workspace.h"
#include "support/MpvPlayer.h"

const QString kFocus = u"vantrelo-finalcut://focus-panel"_s;

const QString kAction = u"vantrelo-finalcut://timeline-action?action="_s;

using CompanionProcess = CompanionCase;

TEST_F(CompanionProcess, RefusesWrongUsageAndAddresses) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const std::pair<QStringList, QString> rows[] = {
      {{QString()}, u"kullanım"_s},
      {{u"--registers"_s}, u"kullanım"_s},
      {{u"--register"_s, kFocus}, u"kullanım"_s},
      {{kFocus + u'/'}, u"Adres reddedildi"_s},
      {{u"vantrelo-finalcut://focus-pan\u00e9l"_s}, u"ASCII"_s},
  };
  for (const auto& [arguments, error] : rows) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2) << arguments.join(u' ');
    EXPECT_TRUE(result.errors.contains(error)) << result.errors;
  }
  qputenv("ORVEX_HOST", "vlc");
  EXPECT_EQ(run({kAction + u"blade-speed"_s}).exitCode, 2);
  EXPECT_EQ(calls_, QStringList());
}

TEST_F(CompanionProcess, PerformsOnThePanelOrSaysWhyNot) {
  const QString blade = kAction + u"blade-speed"_s;
  // Whether a panel runs, what is asked for, the variable, the panel's host; whether it is done,
  // what is said, and whether the panel was asked.
  const std::tuple<bool, QString, QByteArray, QString, bool, QString, bool> rows[] = {
      {false, kFocus, "", u""_s, false, u"Önce paneli aç"_s, false},
      {false, blade, "builtin", u""_s, false, u"Önce paneli aç"_s, false},
      {false, blade, "none", u""_s, false, u"bir host yok"_s, false},
      {true, kFocus, "none", u"none"_s, true, u"öne getirildi"_s, true},
      {true, blade, "", u"builtin:24"_s, true, u"\"blade-speed\""_s, true},
      {true, blade, "builtin", u"none"_s, false, u"uygulanamadı"_s, true},
      {true, blade, "", u"none"_s, false, u"bir host yok"_s, false},
      {true, blade, "none", u"builtin"_s, false, u"bir host yok"_s, false},
      {true, blade, "", u"vlc"_s, false, u"vlc"_s, false},
      {true, blade, "mpv:/nonexistent/s", u"builtin"_s, false, u"/nonexistent/s"_s, false},
  };
  for (const auto& [panelRuns, url, variable, panelsHost, isDone, sentence, isAsked] : rows) {
    SCOPED_TRACE(variable.toStdString() + ' ' + sentence.toStdString());
    qputenv("ORVEX_HOST", variable);
    host_ = panelsHost;
    hasBuiltInHost_ = isDone;
    calls_.clear();
    if (panelRuns) std::ignore = platform_->exportPanel(*this);
    const ProgramResult result = run({url});
    EXPECT_EQ(result.exitCode, isDone ? 0 : 1);
    EXPECT_TRUE((isDone ? result.output : result.errors).contains(sentence)) << result.errors;
    EXPECT_TRUE(result.errors.contains(u"[Vantrelo Orvex] companion: ")) << "not in the log";
    EXPECT_EQ(calls_.size(), isAsked ? 1 : 0);
  }
}

TEST_F(CompanionProcess, ThePanelThatIsLeftIsAsked) {
  auto first = makePlatform();
  struct First final : PanelEndpoint {
    bool focusPanel() override { return true; }
    QString hostInUse() override { return {}; }
    bool performOnBuiltInHost(const QString&) override { return false; }
    QString applyLUTOnBuiltInHost(const QString&) override { return {}; }
  } panel;
  ASSERT_TRUE(first->exportPanel(panel) && platform_->exportPanel(*this));
  EXPECT_EQ(run({kFocus}).exitCode, 0);
  EXPECT_EQ(calls_, QStringList());
  first.reset();
  EXPECT_EQ(run({kFocus}).exitCode, 0);
  EXPECT_EQ(calls_, QStringList{u"focus"_s});
}

TEST_F(CompanionProcess, RegisteredItIsWhatTheDesktopOpensAddressesWith) {
  const QString entry = home(u"data/applications/com.vantrelo.orvex.finalcut.desktop"_s);
  const QString associations = home(u"config/mimeapps.list"_s);
  ASSERT_EQ(run({u"--register"_s}).exitCode, 0);
  const QByteArray once = contentsOf(entry) + contentsOf(associations);
  ASSERT_EQ(run({u"--register"_s}).exitCode, 0);
  EXPECT_EQ(contentsOf(entry) + contentsOf(associations), once);
  ASSERT_TRUE(platform_->exportPanel(*this));
  host_ = u"builtin"_s;
  EXPECT_TRUE(platform_->workspace().open(QUrl(kAction + u"normal-speed"_s)));
  EXPECT_TRUE(waitUntil([&] { return !calls_.isEmpty(); }));
  EXPECT_EQ(calls_, QStringList{u"normal-speed"_s});

  EXPECT_EQ(run({u"--unregister"_s}).exitCode, 0);
  EXPECT_FALSE(QFile::exists(entry));
  EXPECT_FALSE(contentsOf(associations).contains("vantrelo"));
}

TEST_F(CompanionProcess, GivesAPlayerItsCommands) {
  MpvPlayer player({u"--start=2"_s, testClip(u"25"_s)});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"time-pos"_s).isDouble(); }));
  qputenv("ORVEX_HOST", "mpv:" + QFile::encodeName(player.socketPath()));
  const ProgramResult blade = run({kAction + u"blade-speed"_s});
  EXPECT_EQ(blade.exitCode, 0) << blade.errors;
  EXPECT_EQ(player.property(u"chapter-list"_s).toArray().size(), 1);
  player.command({u"set_property"_s, u"speed"_s, 2.5});
  // Without the variable the panel says which player it is.
  qunsetenv("ORVEX_HOST");
  host_ = u"mpv:"_s + player.socketPath();
  ASSERT_TRUE(platform_->exportPanel(*this));
  EXPECT_TRUE(run({kAction + u"toggle-retime"_s}).output.contains(u"%250"));
  EXPECT_EQ(run({kAction + u"normal-speed"_s}).exitCode, 0);
  EXPECT_EQ(player.property(u"speed"_s), 1);
  EXPECT_EQ(calls_, QStringList());
}
