#include "base/FileUrl.h"
#include "engines/LUTHeaderCache.h"
#include "engines/LUTScan.h"
#include "support/TemporaryTree.h"

#include <atomic>
#include <gmock/gmock.h>

using namespace orvex;

namespace {

class LUTScan : public testing::Test {
 protected:
  [[nodiscard]] Inventory<LUTItem> scan(const QByteArray& root, const WorkControl& control = {}) {
    return scanLUTs(root, control, {QLocale(QLocale::Turkish), cache.text("cache")});
  }
  [[nodiscard]] QString ids() {
    QStringList ids;
    for (const LUTItem& item : scan(tree.root()).items) ids.append(item.id);
    return ids.join(u' ');
  }

  TemporaryTree tree;
  TemporaryTree cache;
};

TEST_F(LUTScan, DescribesEachFile) {
  tree.file("sub/dir/x.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  const auto found = scan(tree.root() + '/');
  EXPECT_THAT(found.items, testing::ElementsAre(
                               LUTItem{u"sub/dir/x.cube"_qs, u"x"_qs, u"Film Look"_qs, u"3D 33"_qs,
                                       QUrl::fromLocalFile(tree.text("sub/dir/x.cube"))}));
  EXPECT_EQ(found.search.find(u"LOOK").size(), 1);
  EXPECT_EQ(found.search.find(u"X").size(), 1);
  EXPECT_EQ(found.search.find(u"sub").size(), 0);
}

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
  QStringList listed;
  QStringList read;
  for (const LUTItem& item : scan(tree.root()).items) {
    listed.append(item.id);
    if (item.dimension != u"CUBE" || item.title) read.append(item.id);
  }
  EXPECT_EQ(listed.join(u' '),
            u"A.CUBE b.cube e.Cube Pack.bundle/Contents/f.cube g.cube h.cube i.cube "
            u"e.Cube/inside.cUbE j.cube l.cube m.cube");
  EXPECT_EQ(read.join(u' '), u"A.CUBE Pack.bundle/Contents/f.cube h.cube");
}

TEST_F(LUTScan, SortsByNameAsTheLanguageDoes) {
  for (const char* name : {"Ilık", "ışık", "İnce", "zil", "Çam", "cam", "z/cam", "a/CAM"})
    tree.file(QByteArray(name) + ".cube");
  EXPECT_EQ(ids(),
            u"a/CAM.cube cam.cube z/cam.cube Çam.cube Ilık.cube ışık.cube İnce.cube zil.cube");
}

TEST_F(LUTScan, MakesIdsAndNamesOfRawPaths) {
  const QByteArray root = tree.root();
  for (const QByteArray& file :
       {"in" + root + "/x.cube", "in" + root + "x/y.cube", QByteArray("\xFF/\xE7.cube")})
    tree.file(file, "LUT_3D_SIZE 2\n");
  EXPECT_EQ(ids(), QString::fromUtf8("inx.cube in" + root + "x/y.cube \uFFFD/\uFFFD.cube"));
  const LUTItem raw = scan(root).items.last();
  EXPECT_EQ(raw.dimension, u"3D 2");
  EXPECT_EQ(filePath(raw.fileURL), tree.path("\xFF/\xE7.cube"));
}

TEST_F(LUTScan, FailsOnlyWhenTheRootCannotBeAskedFor) {
  tree.file("file");
  tree.file("locked/a.cube");
  ::chmod(tree.path("locked").constData(), 0);
  for (const char* path : {"missing", "file/below"})
    EXPECT_THROW(std::ignore = scan(tree.path(path)), DescribedError);
  const OrdinaryUser user(tree);
  for (const char* path : {"file", "locked"}) {
    const auto found = scan(tree.path(path));
    EXPECT_THAT(found.items, testing::IsEmpty());
    EXPECT_EQ(found.skippedFolders, 1) << path;
  }
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
  EXPECT_EQ(planted.find(FileIdentity::of(status)), LUTHeader());
  planted.add(FileIdentity::of(status), {std::nullopt, u"3D 99"_qs});
  planted.save();
  EXPECT_EQ(dimension(), u"3D 99");
  cache.file("cache/lut-headers", "damaged");
  EXPECT_EQ(dimension(), u"CUBE");
  ::unlink(tree.path("a.cube").constData());
  for (const char* size : {"22", "33"}) {
    tree.file("a.cube", QByteArray("LUT_3D_SIZE ") + size);
    EXPECT_EQ(dimension(), u"3D "_qs + QString::fromUtf8(size));
  }
}

TEST_F(LUTScan, ReportsStopsAndSurvivesInAHundredThousandEntries) {
  // In memory, where making so many files takes no time.
  const TemporaryTree large(u"/dev/shm"_qs);
  for (int folder = 0; folder < 100; ++folder) {
    const QByteArray name = "folder" + QByteArray::number(folder) + '/';
    large.folder(name.chopped(1));
    for (int file = 0; file < 1000; ++file)
      ::close(::open(large.path(name + QByteArray::number(file) + (file % 100 == 0 ? ".cube" : ""))
                         .constData(),
                     O_CREAT | O_WRONLY, 0644));
  }
  std::atomic<qint64> last = 0;
  const auto items =
      scan(large.root(), {{},
                          [&](Progress progress) {
                            EXPECT_TRUE(progress.total == 0 || progress.total == 1000);
                            last = std::max(last.load(), progress.done);
                          }})
          .items;
  EXPECT_GE(last, 1000);
  EXPECT_EQ(items.size(), 1000);
  EXPECT_TRUE(std::ranges::is_sorted(items, {}, &LUTItem::name));
  // While the tree is walked; reading so few files may be over before it is reported.
  std::stop_source stop;
  const auto stopThere = [&](Progress) { stop.request_stop(); };
  EXPECT_THROW(std::ignore = scan(large.root(), {stop.get_token(), stopThere}), Stopped);
  std::atomic<bool> removed = false;
  const auto found =
      scan(large.root(), {{}, [&](Progress progress) {
                            if (progress.total == 0 && !removed.exchange(true))
                              std::filesystem::remove_all(large.root().toStdString());
                          }});
  EXPECT_TRUE(removed);
  EXPECT_LT(found.items.size(), 1000);
}

}  // namespace
