#include "base/FileUrl.h"
#include "engines/LUTHeaderCache.h"
#include "engines/LUTScan.h"
#include "support/TemporaryTree.h"

#include <QDir>

#include <atomic>
#include <gmock/gmock.h>

using namespace orvex;
using testing::ElementsAre;

namespace {

class LUTScan : public testing::Test {
 protected:
  [[nodiscard]] Inventory<LUTItem> scan(const QByteArray& root, const WorkControl& control = {}) {
    return scanLUTs(root, control, {QLocale(QLocale::Turkish), cache.text("cache")});
  }
  [[nodiscard]] QStringList ids() {
    QStringList ids;
    for (const LUTItem& item : scan(tree.root()).items) ids.append(item.id);
    return ids;
  }

  TemporaryTree tree;
  TemporaryTree cache;
};

TEST_F(LUTScan, DescribesEachFile) {
  tree.file("sub/dir/x.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  const auto found = scan(tree.root() + '/');
  EXPECT_THAT(found.items,
              ElementsAre(LUTItem{QStringLiteral("sub/dir/x.cube"), QStringLiteral("x"),
                                  QStringLiteral("Film Look"), QStringLiteral("3D 33"),
                                  QUrl::fromLocalFile(tree.text("sub/dir/x.cube"))}));
  EXPECT_EQ(found.search.find(u"LOOK").size(), 1);
  EXPECT_EQ(found.search.find(u"X").size(), 1);
  EXPECT_EQ(found.search.find(u"sub").size(), 0);
}

TEST_F(LUTScan, ListsByExtensionWhateverTheEntryIs) {
  tree.file("A.CUBE");
  tree.file("b.cube");
  tree.file("c.txt");
  tree.file("cube");
  tree.file("d.cube.bak");
  tree.file(".hidden.cube");
  tree.file(".hidden/x.cube");
  tree.file("e.Cube/inside.cUbE");
  tree.file("Pack.bundle/Contents/f.cube");
  tree.fifo("g.cube");
  tree.link("h.cube", "b.cube");
  tree.link("i.cube", "nowhere");
  tree.link("j.cube", ".");
  tree.link("k", "Pack.bundle");
  tree.link("l.cube", "/dev/zero");
  EXPECT_EQ(ids().join(u' '),
            u"A.CUBE b.cube e.Cube Pack.bundle/Contents/f.cube g.cube h.cube i.cube "
            u"e.Cube/inside.cUbE j.cube l.cube");
}

TEST_F(LUTScan, ReadsThroughLinksAndListsWhatItCannotRead) {
  tree.file("a.cube", "LUT_3D_SIZE 33\n");
  tree.link("b.cube", "a.cube");
  tree.fifo("c.cube");
  tree.file("d.cube", "TITLE \"x\"\nLUT_3D_SIZE 33\n\xFF");
  tree.file("e.cube", "LUT_3D_SIZE 33\n");
  ::chmod(tree.path("e.cube").constData(), 0);
  const OrdinaryUser user(tree);
  QStringList dimensions;
  for (const LUTItem& item : scan(tree.root()).items) {
    dimensions.append(item.dimension);
    EXPECT_EQ(item.title, std::nullopt);
  }
  EXPECT_THAT(dimensions,
              ElementsAre(QStringLiteral("3D 33"), QStringLiteral("3D 33"), QStringLiteral("CUBE"),
                          QStringLiteral("CUBE"), QStringLiteral("CUBE")));
}

TEST_F(LUTScan, SortsByNameAsTheLanguageDoes) {
  for (const char* name : {"Ilık", "ışık", "İnce", "zil", "Çam", "cam", "z/cam", "a/CAM"})
    tree.file(QByteArray(name) + ".cube");
  EXPECT_EQ(ids().join(u' '),
            u"a/CAM.cube cam.cube z/cam.cube Çam.cube Ilık.cube ışık.cube İnce.cube zil.cube");
}

TEST_F(LUTScan, RemovesTheRootsPathWhereverItOccurs) {
  const QByteArray root = tree.root();
  tree.file("in" + root + "/x.cube");
  tree.file("in" + root + "x/y.cube");
  EXPECT_THAT(ids(),
              ElementsAre(QStringLiteral("inx.cube"), QString::fromUtf8("in" + root + "x/y.cube")));
}

TEST_F(LUTScan, KeepsNamesThatAreNotUtf8) {
  tree.file("\xFF/\xE7.cube", "LUT_3D_SIZE 2\n");
  const auto items = scan(tree.root()).items;
  ASSERT_EQ(items.size(), 1);
  EXPECT_EQ(items[0].name, u"\uFFFD");
  EXPECT_EQ(items[0].dimension, u"3D 2");
  EXPECT_EQ(filePath(items[0].fileURL), tree.path("\xFF/\xE7.cube"));
}

TEST_F(LUTScan, FailsOnlyWhenTheRootCannotBeAskedFor) {
  EXPECT_THROW(std::ignore = scan(tree.path("missing")), ScanError);
  tree.file("file");
  EXPECT_THROW(std::ignore = scan(tree.path("file/below")), ScanError);
  EXPECT_THAT(scan(tree.path("file")).items, testing::IsEmpty());
  tree.folder("empty");
  EXPECT_THAT(scan(tree.path("empty")).items, testing::IsEmpty());
  tree.file("locked/a.cube");
  ::chmod(tree.path("locked").constData(), 0);
  const OrdinaryUser user(tree);
  const auto locked = scan(tree.path("locked"));
  EXPECT_THAT(locked.items, testing::IsEmpty());
  EXPECT_EQ(locked.skippedFolders, 1);
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
  planted.add(FileIdentity::of(status), {std::nullopt, QStringLiteral("3D 99")});
  planted.save();
  EXPECT_EQ(dimension(), u"3D 99");
  cache.file("cache/lut-headers", "damaged");
  EXPECT_EQ(dimension(), u"CUBE");
  ::unlink(tree.path("a.cube").constData());
  tree.file("a.cube", "LUT_3D_SIZE 22\n");
  EXPECT_EQ(dimension(), u"3D 22");
  tree.file("a.cube", "LUT_3D_SIZE 33\n");
  EXPECT_EQ(dimension(), u"3D 33");
}

TEST_F(LUTScan, ReportsAndStops) {
  for (int i = 0; i < 600; ++i) tree.file("f" + QByteArray::number(i) + ".cube");
  std::atomic<qint64> last = 0;
  std::ignore = scan(tree.root(), {{}, [&](Progress progress) {
                                     EXPECT_TRUE(progress.total == 0 || progress.total == 600);
                                     last = std::max(last.load(), progress.done);
                                   }});
  EXPECT_EQ(last, 600);
  for (const qint64 stopAt : {qint64{0}, qint64{600}}) {
    std::stop_source stop;
    EXPECT_THROW(std::ignore = scan(tree.root(), {stop.get_token(),
                                                  [&](Progress progress) {
                                                    if (progress.total == stopAt)
                                                      stop.request_stop();
                                                  }}),
                 ScanStopped);
  }
}

TEST_F(LUTScan, SurvivesAFolderThatVanishesMeanwhile) {
  for (int i = 0; i < 400; ++i) tree.file("f" + QByteArray::number(i) + "/x.cube", "TITLE \"x\"");
  std::atomic<bool> removed = false;
  const auto found = scan(tree.root(), {{}, [&](Progress progress) {
                                          if (progress.total > 0 || removed.exchange(true)) return;
                                          QDir(tree.text(".")).removeRecursively();
                                        }});
  EXPECT_TRUE(removed);
  EXPECT_LE(found.items.size(), 400);
}

TEST_F(LUTScan, ListsAHundredThousandEntries) {
  // In memory, where making so many files takes no time.
  const TemporaryTree large(QStringLiteral("/dev/shm"));
  for (int folder = 0; folder < 100; ++folder) {
    const QByteArray name = "folder" + QByteArray::number(folder) + '/';
    large.folder(name.chopped(1));
    for (int file = 0; file < 1000; ++file)
      ::close(::open(large.path(name + QByteArray::number(file) + (file % 100 == 0 ? ".cube" : ""))
                         .constData(),
                     O_CREAT | O_WRONLY, 0644));
  }
  const auto items = scan(large.root()).items;
  EXPECT_EQ(items.size(), 1000);
  EXPECT_TRUE(std::ranges::is_sorted(items, {}, &LUTItem::name));
}

}  // namespace
