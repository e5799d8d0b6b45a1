// What the desktop does for the panel: opens addresses, starts programs, shows files.
#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "platform/Platform.h"
#include "platform/SchemeHandler.h"
#include "platform/Workspace.h"
#include "platform/linux/SessionBus.h"
#include "support/PrivateSession.h"

#include <QDBusConnection>
#include <QProcess>

#include <sys/wait.h>

namespace {

class FileManager final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

 public:
  FileManager() {
    EXPECT_TRUE(bus.connection().registerObject(u"/org/freedesktop/FileManager1"_s, this,
                                                QDBusConnection::ExportAllSlots));
    EXPECT_TRUE(bus.connection().registerService(u"org.freedesktop.FileManager1"_s));
  }
  // The connection's thread looks at what it still has when the connection ends, which may be
  // later.
  ~FileManager() override { bus.connection().unregisterObject(u"/org/freedesktop/FileManager1"_s); }

  SessionBus bus;
  QStringList shown;

 public Q_SLOTS:
  void ShowItems(const QStringList& uris, const QString&) { shown += uris; }
};

struct Desktop : PrivateSession {
  using Outcome = std::expected<void, QString>;

  [[nodiscard]] bool open() {
    return platform_->workspace().open(
        QUrl(u"vantrelo-finalcut://timeline-action?action=blade-speed"_s));
  }
  [[nodiscard]] Outcome add(const QString& program) {
    const auto added = platform_->schemeHandler().add(u"vantrelo-finalcut"_s, program);
    // GIO learns of changed desktop entries from a watcher on a thread of its own. Programs that
    // register and programs that open are different ones; here both are this process.
    std::ignore = waitUntil([] { return false; }, 500ms);
    return added;
  }
  // What `ask` answers, later: the error, or empty.
  template <typename Ask>
  QString answer(Ask ask) {
    std::optional<Outcome> answer;
    ask([&](const Outcome& outcome) { answer = outcome; });
    EXPECT_FALSE(answer) << "answered before it returned";
    EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
    return answer && !*answer ? answer->error() : QString();
  }
  QString launch(const QUrl& application) {
    return answer([&](const auto& tell) { platform_->workspace().launch(application, tell); });
  }
  QString reveal(const QByteArray& path) {
    return answer([&](const auto& tell) { platform_->workspace().reveal(fileUrl(path), tell); });
  }
  void write(const QString& path, const QByteArray& bytes) const {
    ASSERT_TRUE(replaceFile(home(path).toUtf8(), bytes));
  }
  [[nodiscard]] QUrl bundle(const QString& name, const QByteArray& executable) const {
    write(name + u"/Contents/Info.plist"_s, "<plist><dict><key>CFBundleExecutable</key><string>" +
                                                executable + "</string></dict></plist>");
    return QUrl::fromLocalFile(home(name));
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
};

TEST_F(Desktop, AHandlerGetsTheAddressAndTheEnvironmentAndIsNotWaitedFor) {
  // Every character that means something in a desktop entry or to a shell.
  const QString program =
      script(u"odd \"$HOME\" `id` 'q' \\ ; = é/Vantrelo Orvex"_s,
             "sleep 1\nprintf '%s|%s|%s' \"$#\" \"$1\" \"$ORVEX_HOST\" > \"$HOME/opened\"\n");
  ASSERT_TRUE(add(script(u"former"_s, ""))) << "a moved program replaces the former";
  ASSERT_TRUE(add(program));
  qputenv("ORVEX_HOST", "mpv:/tmp/a socket");

  QElapsedTimer timer;
  timer.start();
  ASSERT_TRUE(open());
  EXPECT_LT(timer.elapsed(), 1000);
  EXPECT_TRUE(waitUntil([this] {
    return contentsOf(home(u"opened"_s)) ==
           "1|vantrelo-finalcut://timeline-action?action=blade-speed|mpv:/tmp/a socket";
  }));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left to be waited for";
}

TEST_F(Desktop, WhatCannotBeAHandlerIsSaidWithItsPath) {
  const QString program = script(u"program"_s, "");
  ASSERT_TRUE(add(program));
  ASSERT_TRUE(QFile::remove(program));
  EXPECT_FALSE(open()) << "it is gone";
  for (const QString& refused : {program, script(u"100%u/program"_s, "")}) {
    const auto added = add(refused);
    EXPECT_TRUE(!added && added.error().contains(refused));
  }
}

TEST_F(Desktop, UnregisteringLeavesOnlyWhatOthersRegistered) {
  write(u"config/mimeapps.list"_s, "[Default Applications]\ntext/plain=o.desktop\n");
  const auto remove = [this] {
    return platform_->schemeHandler().remove(u"vantrelo-finalcut"_s).has_value();
  };
  EXPECT_FALSE(open());
  EXPECT_TRUE(remove()) << "nothing to take back";
  const QString program = script(u"program"_s, "");
  ASSERT_TRUE(add(program));
  EXPECT_TRUE(open());
  // The program may have been deleted before its registration is.
  ASSERT_TRUE(QFile::remove(program));
  EXPECT_TRUE(remove());
  EXPECT_TRUE(QDir(home(u"data/applications"_s)).entryList({u"com.vantrelo*"_s}).isEmpty());
  const QByteArray associations = contentsOf(home(u"config/mimeapps.list"_s));
  EXPECT_FALSE(associations.contains("vantrelo")) << associations.data();
  EXPECT_TRUE(associations.contains("text/plain=o.desktop"));
  EXPECT_FALSE(open());
}

// Death tests have a process of their own.
using DesktopDeathTest = Desktop;

TEST_F(DesktopDeathTest, ABusThatEndsRightAfterALaunchDoesNotEndTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        QProcess bus;
        bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        if (!bus.waitForReadyRead() || !add(u"/bin/true"_s)) std::_Exit(2);
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
        const bool opened = open();
        bus.kill();
        bus.waitForFinished();
        std::ignore = waitUntil([] { return false; }, 200ms);
        std::_Exit(opened ? 0 : 3);
      },
      testing::ExitedWithCode(0), "");
}

TEST_F(Desktop, StartsEachTimeAnInstanceOfItsOwnThatIsNotWaitedFor) {
  const QUrl application = bundle(u"ö X.app"_s, "a program");
  std::ignore = script(u"ö X.app/Contents/MacOS/a program"_s,
                       "sleep 0.5; echo heard; echo heard >&2\n"
                       "printf '%s|%s\\n' \"$#\" \"$ORVEX_HOST\" >> \"$HOME/ran\"\n");
  qputenv("ORVEX_HOST", "mpv:/s");
  testing::internal::CaptureStdout();
  EXPECT_EQ(launch(application), QString());
  EXPECT_EQ(launch(application), QString());
  EXPECT_TRUE(waitUntil([this] { return contentsOf(home(u"ran"_s)) == "0|mpv:/s\n0|mpv:/s\n"; }));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  qunsetenv("ORVEX_HOST");
}

TEST_F(Desktop, SaysWhatCouldNotBeStarted) {
  std::ignore = script(u"elsewhere"_s, "");
  std::ignore = script(u"plain.app/Contents/MacOS/x"_s, "");
  QFile(home(u"plain.app/Contents/MacOS/x"_s)).setPermissions(QFile::ReadOwner);
  const std::pair<QUrl, QString> rows[]{
      {bundle(u"gone.app"_s, "gone"), u"gone.app/Contents/MacOS/gone"_s},
      {bundle(u"plain.app"_s, "x"), u"çalıştırılabilir"_s},
      {bundle(u"out.app"_s, "../../../elsewhere"), u"bir uygulama değil"_s},
      {QUrl::fromLocalFile(home(u"none.app"_s)), u"bir uygulama değil"_s},
      {QUrl(u"https://x/y.app"_s), u"bir uygulama değil"_s},
  };
  for (const auto& [application, error] : rows)
    EXPECT_TRUE(launch(application).contains(error)) << application.toString();
}

TEST_F(Desktop, TheFileManagerIsToldTheRawNameEscaped) {
  FileManager manager;
  const QByteArray path = home(u"data"_s).toUtf8() + "/I\xFFk #1?%.moti";
  ASSERT_TRUE(replaceFile(path, ""));
  EXPECT_EQ(reveal(path), QString());
  ASSERT_EQ(manager.shown.size(), 1);
  EXPECT_TRUE(manager.shown[0].endsWith(u"/I%FFk%20%231%3F%25.moti"_s))
      << qPrintable(manager.shown[0]);
  EXPECT_TRUE(reveal(path + "x").contains(u"artık yerinde değil"_s));
  EXPECT_EQ(manager.shown.size(), 1);
}

TEST_F(Desktop, WithoutAFileManagerOnTheBusTheFolderIsOpened) {
  write(u"data/a b.moti"_s, "");
  const QByteArray path = home(u"data/a b.moti"_s).toUtf8();
  EXPECT_TRUE(reveal(path).contains(u"dosya yöneticisi bulunamadı"_s));
  const QString browse = script(u"browse"_s, "printf %s \"$1\" > \"$HOME/browsed\"\n");
  write(u"data/applications/files.desktop"_s,
        "[Desktop Entry]\nType=Application\nName=Files\nMimeType=inode/directory;\nExec=" +
            browse.toUtf8() + " %u\n");
  write(u"config/mimeapps.list"_s, "[Default Applications]\ninode/directory=files.desktop\n");
  // GIO's watcher of desktop entries lives on a thread of its own.
  ASSERT_TRUE(waitUntil([&] { return reveal(path).isEmpty(); }));
  EXPECT_TRUE(
      waitUntil([&] { return contentsOf(home(u"browsed"_s)) == home(u"data"_s).toUtf8(); }));
}

}  // namespace

#include "WorkspaceTest.moc"
