#include "base/FileUrl.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QUrl>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class Launching : public PrivateSession {
 protected:
  // The error, or empty.
  QString launch(const QUrl& application) {
    std::optional<std::expected<void, QString>> result;
    platform_->workspace().launch(application, [&](const auto& launched) { result = launched; });
    EXPECT_FALSE(result) << "called back before it returned";
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }));
    return result->has_value() ? QString() : result->error();
  }
  [[nodiscard]] QUrl bundle(const QString& name, const QByteArray& executable) const {
    QDir().mkpath(home(name + u"/Contents/MacOS"_s));
    QFile info(home(name + u"/Contents/Info.plist"_s));
    EXPECT_TRUE(info.open(QIODevice::WriteOnly));
    info.write("<plist><dict><key>CFBundleExecutable</key>" + executable + "</dict></plist>");
    return QUrl::fromLocalFile(home(name));
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
};

TEST_F(Launching, StartsEachTimeAnInstanceOfItsOwnThatIsNotWaitedFor) {
  const QUrl application = bundle(u"ö X.app"_s, "<string>a program</string>");
  std::ignore = script(u"ö X.app/Contents/MacOS/a program"_s,
                       "sleep 0.5; echo heard; echo heard >&2\n"
                       "printf '%s|%s\\n' \"$#\" \"$ORVEX_HOST\" >> \"$HOME/ran\"\n");
  qputenv("ORVEX_HOST", "mpv:/s");
  testing::internal::CaptureStdout();
  EXPECT_EQ(launch(application), QString());
  EXPECT_EQ(launch(application), QString());
  EXPECT_FALSE(QFile::exists(home(u"ran"_s)));
  EXPECT_TRUE(waitUntil([this] { return contents(home(u"ran"_s)) == "0|mpv:/s\n0|mpv:/s\n"; }));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  qunsetenv("ORVEX_HOST");
}

TEST_F(Launching, SaysWhatCouldNotBeStarted) {
  std::ignore = script(u"elsewhere"_s, "touch \"$HOME/ran\"\n");
  std::ignore = script(u"plain.app/Contents/MacOS/x"_s, "");
  QFile(home(u"plain.app/Contents/MacOS/x"_s)).setPermissions(QFile::ReadOwner);
  const std::pair<QUrl, QString> rows[]{
      {bundle(u"gone.app"_s, "<string>gone</string>"), u"gone.app/Contents/MacOS/gone"_s},
      {bundle(u"plain.app"_s, "<string>x</string>"), u"çalıştırılabilir"_s},
      {bundle(u"out.app"_s, "<string>../../../elsewhere</string>"), u"bir uygulama değil"_s},
      {bundle(u"empty.app"_s, "<string></string>"), u"bir uygulama değil"_s},
      {QUrl::fromLocalFile(home(u"none.app"_s)), u"bir uygulama değil"_s},
      {QUrl(u"https://x/y.app"_s), u"bir uygulama değil"_s},
  };
  for (const auto& [application, error] : rows)
    EXPECT_TRUE(launch(application).contains(error)) << application.toString();
  EXPECT_FALSE(QFile::exists(home(u"ran"_s)));
}

}  // namespace
