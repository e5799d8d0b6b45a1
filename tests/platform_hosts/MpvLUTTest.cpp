// A LUT over the picture of a real player.
#include "platform/hosts/MpvLUT.h"
#include "support/MpvPlayer.h"

namespace {

constexpr auto kIdentity =
    "LUT_3D_SIZE 2\n0 0 0\n1 0 0\n0 1 0\n1 1 0\n0 0 1\n1 0 1\n0 1 1\n1 1 1\n";

struct PlayersLUT : testing::Test {
  // What `apply` says: "ok: " or "not: " and the sentence.
  static QString apply(const QString& socket, const QString& path) {
    MpvLUT lut(socket);
    QString said;
    lut.apply(path, u"Gece %1"_s, [&said](const std::expected<QString, QString>& outcome) {
      said = outcome ? u"ok: "_s + *outcome : u"not: "_s + outcome.error();
    });
    EXPECT_TRUE(waitUntil([&said] { return !said.isEmpty(); }));
    return said;
  }

  const TemporaryTree tree_;
};

TEST_F(PlayersLUT, TakesThePlaceOfTheOneBeforeWhateverItsPath) {
  MpvPlayer player({testClip(u"25"_s), u"--force-media-title=Çekim"_s});
  player.command({u"vf"_s, u"add"_s, u"@mine:vflip"_s});
  for (const char* name : {"ö ü'[,]:=%5%@\\\"#.cube", "a.cube"}) {
    tree_.file(name, kIdentity);
    EXPECT_EQ(apply(player.socketPath(), tree_.text(name)),
              u"ok: Gece %1 LUT'u Çekim kaydına uygulandı. mpv'de seçim yoktur, LUT tüm kaydı "
              "etkiler.");
    const QJsonArray chain = player.property(u"vf"_s).toArray();
    ASSERT_EQ(chain.size(), 2);
    EXPECT_EQ(chain[1][u"params"][u"file"], tree_.text(name));
    // Also one that the user switched off.
    player.command({u"vf"_s, u"toggle"_s, u"@orvex-lut"_s});
  }
  tree_.file("bad.cube", "LUT_3D_SIZE 3\n0 0 0\n");
  EXPECT_TRUE(apply(player.socketPath(), tree_.text("bad.cube")).startsWith(u"not: mpv komutu"));
  EXPECT_EQ(player.property(u"vf"_s)[1][u"params"][u"file"], tree_.text("a.cube"));
}

TEST_F(PlayersLUT, IsNotClaimedWhereThereIsNoPicture) {
  tree_.file("a.cube", kIdentity);
  MpvPlayer player;
  const auto said = [&] { return apply(player.socketPath(), tree_.text("a.cube")); };
  EXPECT_TRUE(said().contains(u"açık video yok"));
  player.command({u"loadfile"_s, u"av://lavfi:sine"_s});
  EXPECT_TRUE(said().contains(u"görüntü göstermiyor"));
  // Just opened, it is waited for.
  player.command({u"loadfile"_s, testClip(u"25"_s)});
  EXPECT_TRUE(said().startsWith(u"ok"));
  player.kill();
  EXPECT_TRUE(said().contains(u"bağlanılamadı"));
}

}  // namespace
