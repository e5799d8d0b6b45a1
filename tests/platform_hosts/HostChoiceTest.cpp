#include "platform/HostRuntime.h"
#include "platform/hosts/BuiltInHost.h"
#include "platform/hosts/HostChoice.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orvex;

namespace {

using Kind = HostChoice::Kind;

TEST(HostChoice, ReadsAndWrites) {
  const QTemporaryDir runtime;
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
  const QString here = QDir::currentPath();
  const struct {
    QString text;
    HostChoice choice;
    QString written;
  } cases[] = {
      {QString(), {}, QStringLiteral("builtin:25")},
      {QStringLiteral("builtin"), {}, QStringLiteral("builtin:25")},
      {QStringLiteral("builtin:24000/1001"),
       {Kind::BuiltIn, QStringLiteral("24000/1001")},
       QStringLiteral("builtin:24000/1001")},
      {QStringLiteral("none"), {.kind = Kind::None}, QStringLiteral("none")},
      {QStringLiteral("mpv"),
       {.kind = Kind::Mpv,
        .socketPath = runtime.filePath(QStringLiteral("vantrelo-orvex/mpv.sock"))},
       QStringLiteral("mpv:") + runtime.filePath(QStringLiteral("vantrelo-orvex/mpv.sock"))},
      {QStringLiteral("mpv:/tmp/a:b c"),
       {.kind = Kind::Mpv, .socketPath = QStringLiteral("/tmp/a:b c")},
       QStringLiteral("mpv:/tmp/a:b c")},
      // The companion may run in another folder.
      {QStringLiteral("mpv:./x/../s"),
       {.kind = Kind::Mpv, .socketPath = here + QStringLiteral("/s")},
       QStringLiteral("mpv:") + here + QStringLiteral("/s")},
  };
  for (const auto& c : cases) {
    const auto choice = HostChoice::parse(c.text);
    ASSERT_TRUE(choice) << choice.error().toStdString();
    EXPECT_EQ(*choice, c.choice) << c.text.toStdString();
    EXPECT_EQ(choice->text(), c.written);
    EXPECT_EQ(HostChoice::parse(c.written), choice);
  }
}

TEST(HostChoice, RefusesWithAReason) {
  const QString tooLong = QStringLiteral("/") + QString(107, u'x');
  const QString tooLongInUtf8 = QStringLiteral("/") + QString(54, u'ş');
  const struct {
    QString text;
    QString reason;
  } cases[] = {
      {QStringLiteral("vlc"), QStringLiteral("builtin:RATE")},
      {QStringLiteral("MPV"), QStringLiteral("mpv:SOCKET")},
      {QStringLiteral(" builtin"), QStringLiteral("builtin, ")},
      {QStringLiteral("builtin:23"), QStringLiteral("24000/1001, 24, 25")},
      {QStringLiteral("builtin:"), QStringLiteral("60000/1001, 60")},
      {QStringLiteral("mpv:"), QStringLiteral("soket yolu")},
      {QStringLiteral("mpv:/tmp/a") + QChar::Null, QStringLiteral("soket yolu")},
      {QStringLiteral("mpv:") + tooLong, QStringLiteral("çok uzun (108 bayt, en çok 107)")},
      {QStringLiteral("mpv:") + tooLongInUtf8, QStringLiteral("çok uzun (109 bayt, en çok 107)")},
  };
  for (const auto& c : cases) {
    const auto choice = HostChoice::parse(c.text);
    ASSERT_FALSE(choice) << c.text.toStdString();
    EXPECT_TRUE(choice.error().contains(c.reason)) << choice.error().toStdString();
  }
  EXPECT_TRUE(HostChoice::parse(QStringLiteral("mpv:") + tooLong.chopped(1)));
}

TEST(HostChoice, MakesTheRuntime) {
  EXPECT_EQ(makeHostRuntime({.kind = Kind::None})->hostSingleton(), nullptr);
  const auto runtime = makeHostRuntime({Kind::BuiltIn, QStringLiteral("50")});
  const auto host = std::dynamic_pointer_cast<BuiltInHost>(runtime->hostSingleton());
  ASSERT_NE(host, nullptr);
  EXPECT_EQ(host->frameRate(), QStringLiteral("50"));
  EXPECT_EQ(runtime->hostSingleton(), host);
}

}  // namespace
