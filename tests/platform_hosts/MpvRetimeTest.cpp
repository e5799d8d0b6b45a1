#include "platform/hosts/MpvRetime.h"
#include "platform_hosts/Panel.h"
#include "support/MpvPlayer.h"

#include <QJsonObject>

#include <gtest/gtest.h>
#include <optional>

using namespace orvex;

namespace {

// What came of an action on the player at `socket`; an error begins with "hata: ".
QString perform(const QString& socket, QStringView action) {
  MpvRetime retime(socket);
  std::optional<QString> sentence;
  retime.perform(action.toString(), [&](std::expected<QString, QString> outcome) {
    EXPECT_FALSE(sentence) << "told once";
    sentence = outcome ? *outcome : QStringLiteral("hata: ") + outcome.error();
  });
  EXPECT_TRUE(waitUntil([&] { return sentence.has_value(); }));
  return sentence.value_or(QString());
}

TEST(MpvRetime, ActsOnThePlayer) {
  MpvPlayer player({testClip(QStringLiteral("25"))});
  const auto act = [&](QStringView action) { return perform(player.socketPath(), action); };
  ASSERT_TRUE(waitUntil([&] { return player.property(QStringLiteral("time-pos")).isDouble(); }));
  const auto bladeAt = [&](double seconds) {
    player.command({QStringLiteral("seek"), seconds, QStringLiteral("absolute+exact")});
    EXPECT_TRUE(waitUntil(
        [&] { return player.property(QStringLiteral("time-pos")).toDouble() == seconds; }));
    return act(u"blade-speed");
  };
  EXPECT_EQ(bladeAt(6), QStringLiteral("6.000 saniyeye Speed Point eklendi."));
  EXPECT_EQ(bladeAt(2), QStringLiteral("2.000 saniyeye Speed Point eklendi."));
  EXPECT_EQ(bladeAt(2), QStringLiteral("2.000 saniyede zaten bir Speed Point var."));
  const QJsonArray chapters = player.property(QStringLiteral("chapter-list")).toArray();
  ASSERT_EQ(chapters.size(), 2);
  EXPECT_EQ(chapters[0].toObject().value(u"time"), 2);
  EXPECT_EQ(chapters[1].toObject().value(u"time"), 6);
  EXPECT_EQ(chapters[1].toObject().value(u"title"), QStringLiteral("Speed Point"));

  player.command({QStringLiteral("set_property"), QStringLiteral("speed"), 1.5});
  EXPECT_EQ(act(u"toggle-retime"),
            QStringLiteral("mpv'de Retime Editor ve klip seçimi yoktur; geçerli hız %150."));
  EXPECT_TRUE(act(u"normal-speed").contains(u"%100"));
  EXPECT_EQ(player.property(QStringLiteral("speed")), 1);
  EXPECT_EQ(act(u"Blade-Speed"), QStringLiteral("hata: Geçersiz timeline komutu."));

  player.command({QStringLiteral("stop")});
  EXPECT_TRUE(act(u"blade-speed").startsWith(u"hata: mpv'de açık video yok"));
  player.kill();
  EXPECT_TRUE(act(u"normal-speed").startsWith(u"hata: mpv'ye"));
}

}  // namespace
