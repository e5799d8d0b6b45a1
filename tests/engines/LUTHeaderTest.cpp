#include "engines/LUTHeader.h"
#include "engines/LUTHeaderCache.h"

#include <ctime>
#include <sys/stat.h>

TEST(LUTHeader, TakesTheTitleAndTheSizeFromTheFirstLines) {
  const QByteArray lines79 = QByteArray("x\n").repeated(79);
  const std::tuple<QByteArray, const char16_t*, const char16_t*> rows[]{
      {"TITLE \"Gün batımı\"\r\n\r\nLUT_3D_SIZE 33\r\n", u"Gün batımı", u"3D 33"},
      {"TITLE \"Film Look\"\nTITLE Other", u"Other", u"CUBE"},
      {" \tTITLE  \" \"\"a\"b \" \"", u"a\"b", u"CUBE"},
      {"TITLE \nTITLE", nullptr, u"CUBE"},
      {"TITLE\t\"x\"\nLUT_3D_SIZE\t33", nullptr, u"CUBE"},
      {"title \"x\"\nlut_3d_size 33", nullptr, u"CUBE"},
      {"LUT_1D_SIZE 1024\nLUT_3D_SIZE 33", nullptr, u"3D 33"},
      {"x\n\xEF\xBB\xBFLUT_3D_SIZE 33", nullptr, u"CUBE"},
      {"LUT_3D_SIZES 33\n# LUT_3D_SIZE 33", nullptr, u"CUBE"},
      {lines79 + "LUT_3D_SIZE 65", nullptr, u"3D 65"},
      {lines79 + "x\nLUT_3D_SIZE 65", nullptr, u"CUBE"},
      // Empty lines do not count, blank ones do.
      {lines79 + "\n\n\nLUT_3D_SIZE 65", nullptr, u"3D 65"},
      {lines79 + " \nLUT_3D_SIZE 65", nullptr, u"CUBE"},
  };
  for (const auto& [text, title, dimension] : rows) {
    const LUTHeader header = LUTHeader::parse(text);
    EXPECT_EQ(header.title, title ? std::optional(QString::fromUtf16(title)) : std::nullopt)
        << text.constData();
    EXPECT_EQ(header.dimension, dimension) << text.constData();
  }
}

constexpr FileIdentity kOld{1, 1, 100, 1'000'000'000, 1'000'000'000};

TEST(LUTHeaderCache, TrustsTheSameStateOnlyAndNoDamagedFile) {
  const TemporaryTree tree;
  const QString path = tree.text("below/cache");
  const LUTHeader titled{u"Gün"_qs, u"3D 33"_qs};
  // A clock that ticks every few milliseconds would hide a second change.
  FileIdentity fresh = {1, 4, 100, 0, 0};
  fresh.changed = qint64{std::time(nullptr)} * 1'000'000'000;
  {
    LUTHeaderCache cache(path);
    cache.add(kOld, titled);
    cache.add(fresh, {});
    cache.save();
  }
  LUTHeaderCache cache(path);
  struct stat far = {};
  far.st_mtim.tv_sec = 99'999'999'999;
  EXPECT_EQ(cache.find(FileIdentity::of(far)), std::nullopt) << "a time beyond 64 bits";
  EXPECT_EQ(cache.find(kOld), titled);
  EXPECT_EQ(cache.find(fresh), std::nullopt);
  for (auto field : {&FileIdentity::size, &FileIdentity::modified, &FileIdentity::changed}) {
    FileIdentity changed = kOld;
    ++(changed.*field);
    EXPECT_EQ(cache.find(changed), std::nullopt);
  }

  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
  file.write("x");
  file.close();
  EXPECT_EQ(LUTHeaderCache(path).find(kOld), std::nullopt);
}
