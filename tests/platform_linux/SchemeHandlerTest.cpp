#include "platform/Platform.h"
#include "platform/SchemeHandler.h"
#include "platform/Workspace.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QUrl>

#include <sys/wait.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class SchemeHandling : public PrivateSession {
 protected:
  [[nodiscard]] bool open(const char16_t* url) {
    return platform_->workspace().open(QUrl(QString::fromUtf16(url)));
  }
  [[nodiscard]] std::expected<void, QString> add(const QString& program) {
    const auto added = platform_->schemeHandler().add(u"vantrelo-finalcut"_s, program);
    // GIO learns of changed desktop entries from a watcher on a thread of its own. Programs that
    // register and programs that open are different ones; here both are this process.
    std::ignore = waitUntil([] { return false; }, std::chrono::milliseconds(500));
    return added;
  }
  [[nodiscard]] std::expected<void, QString> remove() {
    return platform_->schemeHandler().remove(u"vantrelo-finalcut"_s);
  }
  [[nodiscard]] QString entry() const {
    return home(u"data/applications/com.vantrelo.orvex.finalcut.desktop"_s);
  }
  [[nodiscard]] QString associations() const { return home(u"config/mimeapps.list"_s); }

  const std::unique_ptr<Platform> platform_ = makePlatform();
};

constexpr auto kUrl = u"vantrelo-finalcut://timeline-action?action=blade-speed";

TEST_F(SchemeHandling, WithoutAHandlerNothingIsOpened) {
  for (const char16_t* url : {kUrl, u"vantrelo-finalcut:", u"", u"focus-panel", u"://x", u"/etc"})
    EXPECT_FALSE(open(url)) << qPrintable(QString::fromUtf16(url));
}

TEST_F(SchemeHandling, AHandlerGetsTheAddressAndTheEnvironmentAndIsNotWaitedFor) {
  // Every character that means something in a desktop entry or to a shell.
  const QString program =
      script(u"odd \"$HOME\" `id` 'q' \\ ; = é/Vantrelo Orvex"_s,
             "sleep 1\nprintf '%s|%s|%s' \"$#\" \"$1\" \"$ORVEX_HOST\" > \"$HOME/opened.part\"\n"
             "mv \"$HOME/opened.part\" \"$HOME/opened\"\n");
  ASSERT_TRUE(add(script(u"former"_s, ""))) << "a moved program replaces the former";
  ASSERT_TRUE(add(program));
  qputenv("ORVEX_HOST", "mpv:/tmp/a socket");

  QElapsedTimer timer;
  timer.start();
  ASSERT_TRUE(open(kUrl));
  EXPECT_LT(timer.elapsed(), 1000);
  const QString opened = home(u"opened"_s);
  ASSERT_TRUE(waitUntil([&] { return QFile::exists(opened); }));
  EXPECT_EQ(contents(opened).toStdString(),
            "1|vantrelo-finalcut://timeline-action?action=blade-speed|mpv:/tmp/a socket");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left to be waited for";
}

TEST_F(SchemeHandling, WhatCannotBeAHandlerIsSaidWithItsPath) {
  const QString program = script(u"program"_s, "");
  ASSERT_TRUE(add(program));
  ASSERT_TRUE(QFile::remove(program));
  EXPECT_FALSE(open(kUrl)) << "it is gone";
  const auto refused = [&](const QString& path, const QString& named) {
    const auto added = add(path);
    return !added && added.error().contains(named);
  };
  EXPECT_TRUE(refused(program, program));
  const QString percent = script(u"100%u/program"_s, "");
  EXPECT_TRUE(refused(percent, percent));

  ASSERT_TRUE(QDir(home(u"data/applications"_s)).removeRecursively());
  QFile file(home(u"data/applications"_s));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_TRUE(refused(script(u"program"_s, ""), entry())) << "it cannot be written";
}

TEST_F(SchemeHandling, UnregisteringLeavesOnlyWhatOthersRegistered) {
  QFile file(associations());
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[Default Applications]\ntext/plain=other.desktop\n");
  file.close();
  EXPECT_TRUE(remove()) << "nothing to take back";

  const QString program = script(u"program"_s, "");
  ASSERT_TRUE(add(program));
  EXPECT_TRUE(open(kUrl));
  // The program may have been deleted before its registration is.
  ASSERT_TRUE(QFile::remove(program));
  for (int i = 0; i < 2; ++i) {
    const auto removed = remove();
    EXPECT_TRUE(removed) << qPrintable(removed.error());
    EXPECT_FALSE(QFile::exists(entry()));
    EXPECT_FALSE(contents(associations()).contains("vantrelo")) << contents(associations()).data();
    EXPECT_TRUE(contents(associations()).contains("text/plain=other.desktop"));
  }
  EXPECT_FALSE(open(kUrl));
}

// Death tests have a process of their own.
using SchemeHandlingDeathTest = SchemeHandling;

TEST_F(SchemeHandlingDeathTest, ABusThatEndsRightAfterALaunchDoesNotEndTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        QProcess bus;
        bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        if (!bus.waitForReadyRead() || !add(u"/bin/true"_s)) std::_Exit(2);
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
        const bool opened = open(kUrl);
        bus.kill();
        bus.waitForFinished();
        std::ignore = waitUntil([] { return false; }, std::chrono::milliseconds(200));
        std::_Exit(opened ? 0 : 3);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
