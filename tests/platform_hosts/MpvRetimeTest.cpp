#include "platform/hosts/MpvRetime.h"
#include "platform_hosts/Panel.h"
#include "support/MpvPlayer.h"

#include <QJsonObject>

#include <gtest/gtest.h>
#include <optional>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

// What came of an action on the player at `socket`; an error begins with "hata: ".
QString perform(const QString& socket, QStringView action) {
  MpvRetime retime(socket);
  std::optional<QString> sentence;
  retime.perform(action.toString(), [&](std::expected<QString, QString> outcome) {
    EXPECT_FALSE(sentence) << "told once";
    sentence = outcome ? *outcome : u"hata: "_s + outcome.error();
  });
  EXPECT_TRUE(waitUntil([&] { return sentence.has_value(); }));
  return sentence.value_or(QString());
}

TEST(MpvRetime, ActsOnThePlayer) {
  MpvPlayer player({u"--start=6"_s, testClip(u"25"_s)});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"time-pos"_s).isDouble(); }));
  const auto act = [&](QStringView action) { return perform(player.socketPath(), action); };
  EXPECT_EQ(act(u"blade-speed"), u"6.000 saniyeye Speed Point eklendi."_s);
  player.command({u"seek"_s, 2, u"absolute+exact"_s});
  ASSERT_TRUE(waitUntil([&] { return player.property(u"time-pos"_s) == 2; }));
  EXPECT_EQ(act(u"blade-speed"), u"2.000 saniyeye Speed Point eklendi."_s);
  EXPECT_EQ(act(u"blade-speed"), u"2.000 saniyede zaten bir Speed Point var."_s);
  const QJsonArray chapters = player.property(u"chapter-list"_s).toArray();
  ASSERT_EQ(chapters.size(), 2);
  EXPECT_EQ(chapters[0][u"time"], 2);
  EXPECT_EQ(chapters[1][u"time"], 6);
  EXPECT_EQ(chapters[1][u"title"], u"Speed Point"_s);
  EXPECT_EQ(act(u"Blade-Speed"), u"hata: Geçersiz timeline komutu."_s);

  player.command({u"stop"_s});
  EXPECT_TRUE(act(u"blade-speed").startsWith(u"hata: mpv'de açık video yok"));
  player.kill();
  EXPECT_TRUE(act(u"normal-speed").startsWith(u"hata: mpv'ye"));
}

}  // namespace
