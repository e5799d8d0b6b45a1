#include "platform/hosts/HostChoice.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

using Kind = HostChoice::Kind;

TEST(HostChoice, ReadsAndWrites) {
  qputenv("XDG_RUNTIME_DIR", "/run/me");
  const QString here = QDir::currentPath();
  const HostChoice builtIn;
  const auto mpv = [](const QString& path) {
    return HostChoice{.kind = Kind::Mpv, .socketPath = path};
  };
  const struct {
    QString text;
    HostChoice choice;
    QString written;
  } cases[] = {
      {QString(), builtIn, u"builtin:25"_s},
      {u"builtin:24000/1001"_s, {Kind::BuiltIn, u"24000/1001"_s}, u"builtin:24000/1001"_s},
      {u"none"_s, {.kind = Kind::None}, u"none"_s},
      {u"mpv"_s, mpv(u"/run/me/vantrelo-orvex/mpv.sock"_s),
       u"mpv:/run/me/vantrelo-orvex/mpv.sock"_s},
      {u"mpv:/tmp/a:b c"_s, mpv(u"/tmp/a:b c"_s), u"mpv:/tmp/a:b c"_s},
      // The companion may run in another folder.
      {u"mpv:./x/../s"_s, mpv(here + u"/s"_s), u"mpv:"_s + here + u"/s"_s},
  };
  for (const auto& c : cases) {
    const auto choice = HostChoice::parse(c.text);
    ASSERT_TRUE(choice) << choice.error();
    EXPECT_EQ(*choice, c.choice) << c.text;
    EXPECT_EQ(choice->text(), c.written);
    EXPECT_EQ(HostChoice::parse(c.written), choice);
  }
}

TEST(HostChoice, RefusesWithAReason) {
  const QString longest = u"mpv:/"_s + QString(106, u'x');
  EXPECT_TRUE(HostChoice::parse(longest));
  const struct {
    QString text;
    QString reason;
  } cases[] = {
      {u"MPV"_s, u"mpv:SOCKET"_s},
      {u"builtin:23"_s, u"24000/1001, 24, 25"_s},
      {u"mpv:"_s, u"soket yolu"_s},
      {u"mpv:/tmp/a"_s + QChar::Null, u"soket yolu"_s},
      {u"mpv:/"_s + QString(54, u'ş'), u"çok uzun (109 bayt, en çok 107)"_s},
  };
  for (const auto& c : cases) {
    const auto choice = HostChoice::parse(c.text);
    ASSERT_FALSE(choice) << c.text;
    EXPECT_TRUE(choice.error().contains(c.reason)) << choice.error();
  }
}

}  // namespace
