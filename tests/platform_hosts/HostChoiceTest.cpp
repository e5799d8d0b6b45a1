#include "platform/hosts/HostChoice.h"

TEST(HostChoice, ReadsAndWritesTheSame) {
  qputenv("XDG_RUNTIME_DIR", "/run/me");
  const std::pair<QString, QString> rows[]{
      {QString(), u"builtin:25"_s},
      {u"builtin:24000/1001"_s, u"builtin:24000/1001"_s},
      {u"none"_s, u"none"_s},
      {u"mpv"_s, u"mpv:/run/me/vantrelo-orvex-mpv.sock"_s},
      {u"mpv:/tmp/a:b c"_s, u"mpv:/tmp/a:b c"_s},
      // The companion may run in another folder. What is above a link only the system knows.
      {u"mpv:x/../s"_s, u"mpv:"_s + QDir::currentPath() + u"/x/../s"_s},
  };
  for (const auto& [text, written] : rows) {
    const auto choice = HostChoice::parse(text);
    ASSERT_TRUE(choice) << choice.error();
    EXPECT_EQ(choice->text(), written);
    EXPECT_EQ(HostChoice::parse(written), choice);
  }
}

TEST(HostChoice, RefusesWithAReason) {
  const std::pair<QString, QString> rows[]{
      {u"MPV"_s, u"mpv:SOCKET"_s},
      {u"builtin:23"_s, u"24000/1001, 24, 25"_s},
      {u"mpv:"_s, u"soket yolu"_s},
      {u"mpv:/tmp/a"_s + QChar::Null, u"soket yolu"_s},
      {u"mpv:/"_s + QString(54, u'ş'), u"çok uzun (109 bayt, en çok 107)"_s},
  };
  for (const auto& [text, reason] : rows) {
    const auto choice = HostChoice::parse(text);
    ASSERT_FALSE(choice) << text;
    EXPECT_TRUE(choice.error().contains(reason)) << choice.error();
  }
  EXPECT_TRUE(HostChoice::parse(u"mpv:/"_s + QString(106, u'x')));
}
