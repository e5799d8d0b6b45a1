#include "engines/LUTHeader.h"
#include "engines/LUTHeaderCache.h"
#include "support/TemporaryTree.h"

#include <ctime>

using namespace orvex;

namespace {

TEST(LUTHeader, TakesTheTitleAndTheSizeFromTheFirstLines) {
  const QByteArray line80 = QByteArray("x\n").repeated(79);
  const struct {
    const char* name;
    QByteArray text;
    const char16_t* title;
    const char16_t* dimension;
  } rows[]{
      {"nothing", "", nullptr, u"CUBE"},
      {"both", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n", u"Film Look", u"3D 33"},
      {"CR LF", "TITLE \"Film Look\"\r\n\r\nLUT_3D_SIZE 33\r\n", u"Film Look", u"3D 33"},
      {"later title", "TITLE \"Film Look\"\nTITLE Other", u"Other", u"CUBE"},
      {"quotes and spaces", " \tTITLE  \" \"\"a\"b \" \"", u"a\"b", u"CUBE"},
      {"empty title", "TITLE \"\"", u"", u"CUBE"},
      {"title without a value", "TITLE \nTITLE", nullptr, u"CUBE"},
      {"title with a tab", "TITLE\t\"x\"", nullptr, u"CUBE"},
      {"small letters", "title \"x\"\nlut_3d_size 33", nullptr, u"CUBE"},
      {"1D", "LUT_1D_SIZE 1024", nullptr, u"1D 1024"},
      {"last size wins", "LUT_1D_SIZE 1024\nLUT_3D_SIZE 33", nullptr, u"3D 33"},
      {"last size wins, the other way", "LUT_3D_SIZE 33\nLUT_1D_SIZE 1024", nullptr, u"1D 1024"},
      {"no number", "LUT_3D_SIZE many \t ", nullptr, u"3D many"},
      {"keyword twice", "LUT_3D_SIZE LUT_3D_SIZE\t 33", nullptr, u"3D 33"},
      {"size with a tab", "LUT_3D_SIZE\t33", nullptr, u"CUBE"},
      {"size in a longer word", "LUT_3D_SIZES 33", nullptr, u"CUBE"},
      {"behind a comment sign", "# LUT_3D_SIZE 33", nullptr, u"CUBE"},
      {"line 5", "a\nb\nc\nd\nLUT_3D_SIZE 65", nullptr, u"3D 65"},
      {"line 80", line80 + "LUT_3D_SIZE 65", nullptr, u"3D 65"},
      {"line 81", line80 + "x\nLUT_3D_SIZE 65", nullptr, u"CUBE"},
      {"empty lines do not count", line80 + "\n\n\n" + "LUT_3D_SIZE 65", nullptr, u"3D 65"},
      {"blank ones do", line80 + " \nLUT_3D_SIZE 65", nullptr, u"CUBE"},
      {"not ASCII", "TITLE \"Gün batımı\"\n", u"Gün batımı", u"CUBE"},
  };
  for (const auto& row : rows) {
    const LUTHeader header = LUTHeader::parse(row.text);
    EXPECT_EQ(header.title, row.title ? std::optional(QString::fromUtf16(row.title)) : std::nullopt)
        << row.name;
    EXPECT_EQ(header.dimension, QString::fromUtf16(row.dimension)) << row.name;
  }
}

FileIdentity identity(quint64 inode) {
  return {1, inode, 100, 1'000'000'000, 1'000'000'000};
}

TEST(LUTHeaderCache, GivesBackWhatItWasToldAboutTheSameState) {
  const TemporaryTree tree;
  const QString path = tree.text("below/cache");
  const LUTHeader titled{QStringLiteral("Gün"), QStringLiteral("3D 33")};
  {
    LUTHeaderCache cache(path);
    cache.add(identity(1), titled);
    cache.add(identity(2), {});
    cache.save();
  }
  LUTHeaderCache cache(path);
  EXPECT_EQ(cache.find(identity(1)), titled);
  EXPECT_EQ(cache.find(identity(2)), LUTHeader());
  EXPECT_EQ(cache.find(identity(3)), std::nullopt);
  for (auto field : {&FileIdentity::size, &FileIdentity::modified, &FileIdentity::changed}) {
    FileIdentity changed = identity(1);
    ++(changed.*field);
    EXPECT_EQ(cache.find(changed), std::nullopt);
  }
  FileIdentity elsewhere = identity(1);
  ++elsewhere.device;
  EXPECT_EQ(cache.find(elsewhere), std::nullopt);
}

// A clock that ticks every few milliseconds would hide a second change.
TEST(LUTHeaderCache, DoesNotTrustFilesThatJustChanged) {
  const TemporaryTree tree;
  LUTHeaderCache cache(tree.text("cache"));
  FileIdentity fresh = identity(1);
  fresh.changed = qint64{std::time(nullptr)} * 1'000'000'000;
  cache.add(fresh, {});
  EXPECT_EQ(cache.find(fresh), std::nullopt);
}

TEST(LUTHeaderCache, ADamagedFileIsAnEmptyCache) {
  const TemporaryTree tree;
  const QString path = tree.text("cache");
  {
    LUTHeaderCache cache(path);
    cache.add(identity(1), {QStringLiteral("t"), QStringLiteral("3D 2")});
    cache.save();
  }
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray good = file.readAll();
  for (qsizetype i = 0; i <= good.size(); ++i) {
    tree.file("cache", good.first(i));
    EXPECT_EQ(LUTHeaderCache(path).find(identity(1)).has_value(), i == good.size()) << i;
    if (i == good.size()) break;
    QByteArray damaged = good;
    damaged[i] = static_cast<char>(~damaged[i]);
    tree.file("cache", damaged);
    EXPECT_EQ(LUTHeaderCache(path).find(identity(1)), std::nullopt) << i;
  }
}

}  // namespace
