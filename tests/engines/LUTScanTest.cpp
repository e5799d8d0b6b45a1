#include "base/FileUrl.h"
#include "engines/LUTHeaderCache.h"
#include "engines/LUTScan.h"

namespace {

struct LUTScan : testing::Test {
  [[nodiscard]] Inventory<LUTItem> scan(const QByteArray& root) {
    return scanLUTs(root, {}, {QLocale(QLocale::Turkish), cache.text("cache")});
  }
  [[nodiscard]] QString ids(bool onlyRead = false) {
    QStringList ids;
    for (const LUTItem& item : scan(tree.root()).items)
      if (!onlyRead || item.dimension != u"CUBE" || item.title) ids.append(item.id());
    return ids.join(u' ');
  }

  TemporaryTree tree;
  TemporaryTree cache;
};

TEST_F(LUTScan, ListsByExtensionWhateverTheEntryIsAndReadsWhatItCan) {
  const QByteArray header = "LUT_3D_SIZE 33\n";
  for (const char* name : {"A.CUBE", "c.txt", "cube", "d.cube.bak", ".hidden.cube",
                           ".hidden/x.cube", "Pack.bundle/Contents/f.cube", "m.cube"})
    tree.file(name, header);
  tree.file("b.cube", "TITLE \"x\"\n" + header + "\xFF");
  tree.file("e.Cube/inside.cUbE");
  tree.fifo("g.cube");
  tree.link("h.cube", "A.CUBE");
  tree.link("i.cube", "nowhere");
  tree.link("j.cube", ".");
  tree.link("k", "Pack.bundle");
  tree.link("l.cube", "/dev/zero");
  ::chmod(tree.path("m.cube").constData(), 0);
  const OrdinaryUser user(tree);
  EXPECT_EQ(ids(),
            u"A.CUBE b.cube e.Cube Pack.bundle/Contents/f.cube g.cube h.cube i.cube "
            u"e.Cube/inside.cUbE j.cube l.cube m.cube");
  EXPECT_EQ(ids(true), u"A.CUBE Pack.bundle/Contents/f.cube h.cube");
}

TEST_F(LUTScan, MakesIdsAndNamesOfRawPaths) {
  const QByteArray root = tree.root();
  for (const QByteArray& file :
       {"in" + root + "/x.cube", "in" + root + "x/y.cube", QByteArray("\xFF/\xE7.cube")})
    tree.file(file, "TITLE \"Title\"\nLUT_3D_SIZE 2\n");
  EXPECT_EQ(ids(), QString::fromUtf8("inx.cube in" + root + "x/y.cube \uFFFD/\uFFFD.cube"));
  const auto found = scan(root + '/');
  EXPECT_EQ(found.items.last().dimension, u"3D 2");
  EXPECT_EQ(filePath(found.items.last().fileURL()), tree.path("\xFF/\xE7.cube"));
  EXPECT_EQ(found.search.find(u"title").size(), 3);
  EXPECT_EQ(found.search.find(u"in").size(), 0) << "folders are not searched";
}

// What did not change is not read again, also by another process: a cache that says something wrong
// of the file is believed.
TEST_F(LUTScan, ReadsOnlyWhatChanged) {
  // Changed long enough ago to be trusted.
  const QByteArray old = QT_TESTCASE_SOURCEDIR "/LUTScanTest.cpp";
  tree.link("a.cube", old);
  const auto dimension = [this] { return scan(tree.root()).items.value(0).dimension; };
  EXPECT_EQ(dimension(), u"CUBE");
  struct stat status {};
  ASSERT_EQ(::stat(old.constData(), &status), 0);
  LUTHeaderCache planted(cache.text("cache/lut-headers"));
  planted.add(FileIdentity::of(status), {std::nullopt, u"3D 99"_qs});
  planted.save();
  EXPECT_EQ(dimension(), u"3D 99");
  ::unlink(tree.path("a.cube").constData());
  for (const char* size : {"22", "33"}) {
    tree.file("a.cube", QByteArray("LUT_3D_SIZE ") + size);
    EXPECT_EQ(dimension(), u"3D "_qs + QString::fromUtf8(size));
  }
}

}  // namespace
