#include "engines/FolderBookmarkStore.h"
#include "support/NoSystem.h"
#include "support/TemporaryTree.h"
#include "support/Wait.h"
#include "ui/color/CloudLUTs.h"
#include "ui/color/LocalLUTs.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <filesystem>
#include <gmock/gmock.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

QString shown(const LUTCatalog& luts) {
  QStringList rows;
  for (int row = 0; row < luts.rowCount(); ++row)
    rows.append(luts.index(row).data(LUTCatalog::NameRole).toString() + u'|' +
                luts.index(row).data(LUTCatalog::CaptionRole).toString());
  return rows.join(u'\n');
}

TEST(CloudLUTs, DisplayName) {
  const std::map<QString, QString> names{{u"Film.Look.cube"_s, u"Film.Look"_s},
                                         {u"lutpack3.cube"_s, u"LUT Pack 03"_s},
                                         {u"LUTPack012.CUBE"_s, u"LUT Pack 12"_s},
                                         {u"lutpack0.cube"_s, u"LUT Pack 00"_s},
                                         {u"lutpack7 sıcak.cube"_s, u"LUT Pack 07 sıcak"_s},
                                         {u"lutpack.cube"_s, u"lutpack"_s},
                                         {u"my lutpack3.cube"_s, u"my lutpack3"_s},
                                         {u"İ.cube"_s, u"İ"_s}};
  for (const auto& [file, name] : names) EXPECT_EQ(CloudLUTs::displayName(file), name);
}

TEST(CloudLUTs, ListTheCubeFilesOfThePacksAndFindThemByNameAndPack) {
  const TemporaryTree tree;
  tree.file("packs/a%20b/1.0/installed.json",
            R"({"id":"a%20b","name":"Işıklar","version":"1.0","installedAt":0,
                "files":["A.CUBE","b.cube","readme.txt",".cube"]})");
  tree.file("packs/z/2/installed.json",
            R"({"id":"z","name":"Küre","version":"2","installedAt":0,"files":["lutpack3.cube"]})");
  OrvexState state({ReleaseCenterClient({}, {}), UniversalPackClient({}, tree.text("packs"), {}),
                    RequestCenterClient({}, {})});
  CloudLUTs luts;
  const QAbstractItemModelTester tester(&luts);
  luts.setState(&state);
  EXPECT_EQ(luts.total(), 0);
  state.refreshInstalledPacks();
  ASSERT_TRUE(waitUntil([&] { return luts.total() == 3; }));
  EXPECT_EQ(shown(luts), u"A|Işıklar • v1.0\nb|Işıklar • v1.0\nLUT Pack 03|Küre • v2"_qs);
  EXPECT_EQ(luts.index(0).data(LUTCatalog::FileRole).toUrl(),
            QUrl::fromLocalFile(tree.text("packs/a%20b/1.0/A.CUBE")));
  EXPECT_EQ(luts.index(0).data(LUTCatalog::PathRole), tree.text("packs/a%20b/1.0/A.CUBE"));
  EXPECT_EQ(luts.index(2).data(LUTCatalog::RootRole).toUrl(),
            QUrl::fromLocalFile(tree.text("packs/z/2")));

  // Rows are places: they come and go at the end only.
  QSignalSpy resets(&luts, &LUTCatalog::modelReset);
  for (const auto& [search, count] :
       {std::pair(u"  küre\n"_qs, 1), {u"pack 03"_qs, 1}, {u"readme"_qs, 0}, {u" \t"_qs, 3}}) {
    luts.setSearch(search);
    EXPECT_EQ(luts.count(), count) << search;
  }
  EXPECT_EQ(luts.total(), 3);
  std::filesystem::remove_all(tree.path("packs").toStdString());
  state.refreshInstalledPacks();
  ASSERT_TRUE(waitUntil([&] { return luts.count() == 0; }));
  EXPECT_EQ(resets.count(), 0);
}

TEST(LocalLUTs, FollowTheLibraryAndItsSearch) {
  TemporaryTree tree;
  tree.file("sub/b.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("a.cube");
  NoFolders folders;
  LUTRegistry registry(folders.bookmarks());
  LocalLUTs luts;
  const QAbstractItemModelTester tester(&luts);
  luts.setRegistry(&registry);
  EXPECT_EQ(luts.total(), 0);
  ASSERT_EQ(registry.useFolder(QUrl::fromLocalFile(tree.text(""))), QString());
  ASSERT_TRUE(waitUntil([&] { return luts.count() == 2; }));
  EXPECT_EQ(shown(luts), u"a|CUBE\nb|Film Look • 3D 33"_s);
  EXPECT_EQ(luts.index(1).data(LUTCatalog::RootRole).toUrl(), *registry.rootURL());
  luts.setSearch(u"LOOK"_s);
  EXPECT_EQ(shown(luts), u"b|Film Look • 3D 33"_s);
  ::unlink(tree.path("sub/b.cube").constData());
  registry.scan();
  ASSERT_TRUE(waitUntil([&] { return luts.total() == 1; }));
  EXPECT_EQ(luts.count(), 0);
}

}  // namespace
