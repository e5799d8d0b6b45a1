#include "engines/LUTHeader.h"
#include "engines/LUTHeaderCache.h"
#include "support/TemporaryTree.h"

#include <ctime>

using namespace orvex;

namespace {

TEST(LUTHeader, TakesTheTitleAndTheSizeFromTheFirstLines) {
  const QByteArray lines79 = QByteArray("x\n").repeated(79);
  const struct {
    QByteArray text;
    const char16_t* title;
    const char16_t* dimension;
  } rows[]{
      {"", nullptr, u"CUBE"},
      {"TITLE \"Gün batımı\"\r\n\r\nLUT_3D_SIZE 33\r\n", u"Gün batımı", u"3D 33"},
      {"TITLE \"Film Look\"\nTITLE Other", u"Other", u"CUBE"},
      {" \tTITLE  \" \"\"a\"b \" \"", u"a\"b", u"CUBE"},
      {"TITLE \"\"", u"", u"CUBE"},
      {"TITLE \nTITLE", nullptr, u"CUBE"},
      {"TITLE\t\"x\"\nLUT_3D_SIZE\t33", nullptr, u"CUBE"},
      {"title \"x\"\nlut_3d_size 33", nullptr, u"CUBE"},
      {"LUT_1D_SIZE 1024\nLUT_3D_SIZE 33", nullptr, u"3D 33"},
      {"LUT_3D_SIZE 33\nLUT_1D_SIZE 1024", nullptr, u"1D 1024"},
      {"LUT_3D_SIZE many \t ", nullptr, u"3D many"},
      {"LUT_3D_SIZE LUT_3D_SIZE\t 33", nullptr, u"3D 33"},
      {"LUT_3D_SIZES 33\n# LUT_3D_SIZE 33", nullptr, u"CUBE"},
      {lines79 + "LUT_3D_SIZE 65", nullptr, u"3D 65"},
      {lines79 + "x\nLUT_3D_SIZE 65", nullptr, u"CUBE"},
      // Empty lines do not count, blank ones do.
      {lines79 + "\n\n\nLUT_3D_SIZE 65", nullptr, u"3D 65"},
      {lines79 + " \nLUT_3D_SIZE 65", nullptr, u"CUBE"},
  };
  for (const auto& row : rows) {
    const LUTHeader header = LUTHeader::parse(row.text);
    EXPECT_EQ(header.title, row.title ? std::optional(QString::fromUtf16(row.title)) : std::nullopt)
        << row.text.constData();
    EXPECT_EQ(header.dimension, row.dimension) << row.text.constData();
  }
}

FileIdentity identity(quint64 inode) {
  return {1, inode, 100, 1'000'000'000, 1'000'000'000};
}

TEST(LUTHeaderCache, TrustsTheSameStateOnlyAndNoDamagedFile) {
  const TemporaryTree tree;
  const QString path = tree.text("below/cache");
  const LUTHeader titled{u"Gün"_qs, u"3D 33"_qs};
  // A clock that ticks every few milliseconds would hide a second change.
  FileIdentity fresh = identity(4);
  fresh.changed = qint64{std::time(nullptr)} * 1'000'000'000;
  {
    LUTHeaderCache cache(path);
    cache.add(identity(1), titled);
    cache.add(identity(2), {});
    cache.add(fresh, {});
    cache.save();
  }
  LUTHeaderCache cache(path);
  EXPECT_EQ(cache.find(identity(1)), titled);
  EXPECT_EQ(cache.find(identity(2)), LUTHeader());
  EXPECT_EQ(cache.find(identity(3)), std::nullopt);
  EXPECT_EQ(cache.find(fresh), std::nullopt);
  for (auto field : {&FileIdentity::size, &FileIdentity::modified, &FileIdentity::changed}) {
    FileIdentity changed = identity(1);
    ++(changed.*field);
    EXPECT_EQ(cache.find(changed), std::nullopt);
  }
  FileIdentity elsewhere = identity(1);
  ++elsewhere.device;
  EXPECT_EQ(cache.find(elsewhere), std::nullopt);

  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray good = file.readAll();
  for (qsizetype i = 0; i < good.size(); ++i) {
    tree.file("below/cache", good.first(i));
    EXPECT_EQ(LUTHeaderCache(path).find(identity(1)), std::nullopt) << i;
    QByteArray damaged = good;
    damaged[i] = static_cast<char>(~damaged[i]);
    tree.file("below/cache", damaged);
    EXPECT_EQ(LUTHeaderCache(path).find(identity(1)), std::nullopt) << i;
  }
}

}  // namespace
