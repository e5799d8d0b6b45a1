#include "platform/hosts/MpvPicture.h"
#include "support/MpvPlayer.h"

#include <QImage>

namespace {

// The picture's size and the brightness of its middle, or nothing.
std::optional<std::pair<QSize, int>> taken(MpvPicture& pictures) {
  std::optional<std::optional<QByteArray>> answer;
  pictures.take([&](const std::optional<QByteArray>& picture) { answer = picture; });
  EXPECT_FALSE(answer) << "answered from within the call";
  EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }, 6s));
  if (!answer || !*answer) return std::nullopt;
  const QImage image = QImage::fromData(**answer);
  return std::pair(image.size(), qGray(image.pixel(image.width() / 2, image.height() / 2)));
}

TEST(MpvPicture, ShowsTheFrameBeforeThePanelsLut) {
  MpvPlayer player({u"av://lavfi:color=c=0x808080:size=64x36:duration=10:rate=25"_s});
  MpvPicture pictures(player.socketPath());
  // The player shows frames, and no longer shows them, some time after it has said so.
  std::optional<std::pair<QSize, int>> before;
  ASSERT_TRUE(waitUntil([&] { return (before = taken(pictures)).has_value(); }));
  EXPECT_EQ(before->first, QSize(64, 36));
  EXPECT_NEAR(before->second, 128, 3);

  // Any filter of the label stands for the LUT; this one makes white of grey.
  player.command({u"vf"_s, u"add"_s, u"@orvex-lut:lavfi=[lutrgb=r=255:g=255:b=255]"_s});
  ASSERT_EQ(player.property(u"vf"_s).toArray().size(), 1);
  EXPECT_EQ(taken(pictures), before);
  MpvPicture later(player.socketPath());
  EXPECT_EQ(taken(later), std::nullopt);
  player.command({u"vf"_s, u"toggle"_s, u"@orvex-lut"_s});
  EXPECT_TRUE(waitUntil([&] { return taken(later) == before; }));

  player.command({u"stop"_s});
  EXPECT_TRUE(waitUntil([&] { return !taken(pictures); }));
  player.kill();
  EXPECT_EQ(taken(pictures), std::nullopt);
}

}  // namespace
