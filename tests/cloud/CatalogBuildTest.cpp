#include "base/Sha256.h"
#include "cloud/CatalogBuild.h"
#include "services/UniversalPackCatalog.h"
#include "support/TemporaryTree.h"

#include <gmock/gmock.h>

using namespace orvex;

namespace {

const QUrl kCatalogURL(
    QStringLiteral("https://packs.example/x/downloads/orvex/packs/manifest.json"));
constexpr auto kManifest = "public/downloads/orvex/packs/manifest.json";

QByteArray read(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Everything published: names, bytes, times.
QMap<QString, std::pair<QByteArray, qint64>> published(const TemporaryTree& tree) {
  QMap<QString, std::pair<QByteArray, qint64>> files;
  const QString root = tree.text("public");
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root.toStdString()))
    if (entry.is_regular_file())
      files[QString::fromStdString(entry.path()).sliced(root.size())] = {
          read(QString::fromStdString(entry.path())),
          entry.last_write_time().time_since_epoch().count()};
  return files;
}

class CatalogBuildTest : public testing::Test {
 protected:
  void SetUp() override {
    pack(tree, "1.0.0");
    tree.file("packs/.hidden/x");
    tree.file(
        "release.json",
        R"({"productId":"vantrelo-orvex-finalcut","version":"2","downloadURL":"https://x/y"})");
  }
  static void pack(const TemporaryTree& into, const QByteArray& version) {
    into.file("packs/gece/pack.json",
              R"({"name":"Gece","version":")" + version + R"(","targets":["final-cut","öteki"]})");
    into.file("packs/gece/shared/b.cube", "bb");
    into.file("packs/gece/shared/a %20#?.cube", "aaa");
    into.file("packs/gece/shared/.DS_Store", "x");
    into.file("packs/gece/variants/öteki/ığ.txt", "i");
  }
  CatalogBuild build(const TemporaryTree& in) const {
    return buildCatalog(Directory::open(in.root()), kCatalogURL);
  }
  UniversalPackCatalog catalog() const {
    return UniversalPackCatalog::decode(read(tree.text(kManifest)));
  }

  TemporaryTree tree;
};

TEST_F(CatalogBuildTest, StatesWhatIsPublished) {
  EXPECT_TRUE(build(tree).changed);
  const UniversalPackCatalog made = catalog();
  EXPECT_EQ(made.schemaVersion, 1);
  EXPECT_EQ(made.previousRevisionSHA256, std::nullopt);
  ASSERT_EQ(made.packs.size(), 1);
  const UniversalPack& pack = made.packs[0];
  EXPECT_EQ(pack.id, u"gece"_qs);
  EXPECT_EQ(pack.targets, (QStringList{u"final-cut"_qs, u"öteki"_qs}));
  ASSERT_EQ(pack.sharedAssets.size(), 2);
  const UniversalPackAsset& odd = pack.sharedAssets[0];
  EXPECT_EQ(odd.file, u"a %20#?.cube"_qs);
  EXPECT_EQ(odd.bytes, 3);
  EXPECT_EQ(odd.sha256, u"9834876dcfb05cb167a5c24953eba58c4ac89b1adf57f28f2f9d09af107ee8f0"_qs);
  EXPECT_EQ(odd.url,
            u"https://packs.example/x/downloads/orvex/packs/files/gece/1.0.0/shared/"
            u"a%20%2520%23%3F.cube"_qs);
  EXPECT_EQ(pack.variants.value(u"öteki"_qs).value(0).file, u"ığ.txt"_qs);
  EXPECT_EQ(pack.rollback, UniversalPackRollback());
  const QByteArray own = read(tree.text("public/downloads/orvex/packs/manifests/gece/1.0.0.json"));
  EXPECT_EQ(pack.manifestSHA256, QString::fromLatin1(Sha256::of(own).toHex()));
  EXPECT_EQ(read(tree.text("public/downloads/orvex/packs/files/gece/1.0.0/shared/b.cube")), "bb");
  EXPECT_TRUE(read(tree.text("public/downloads/finalcut/manifest.json")).contains("https://x/y"));
}

TEST_F(CatalogBuildTest, GivesTheSameForTheSame) {
  const CatalogBuild first = build(tree);
  const auto before = published(tree);
  const CatalogBuild again = build(tree);
  EXPECT_FALSE(again.changed);
  EXPECT_EQ(again.revision, first.revision);
  EXPECT_EQ(published(tree), before);

  const TemporaryTree other;
  pack(other, "1.0.0");
  EXPECT_EQ(build(other).revision, first.revision);
  EXPECT_EQ(read(other.text(kManifest)), read(tree.text(kManifest)));
}

TEST_F(CatalogBuildTest, FollowsOnWhatWasPublishedBefore) {
  build(tree);
  const QByteArray before = read(tree.text(kManifest));
  const UniversalPack old = catalog().packs[0];
  pack(tree, "1.1.0");
  tree.file("packs/gece/shared/c.cube", "new");
  QFile::remove(tree.text("release.json"));
  EXPECT_TRUE(build(tree).changed);
  EXPECT_EQ(catalog().previousRevisionSHA256, QString::fromLatin1(Sha256::of(before).toHex()));
  const UniversalPackRollback rollback = catalog().packs[0].rollback;
  EXPECT_EQ(rollback.previousVersion, u"1.0.0"_qs);
  EXPECT_EQ(rollback.previousManifestSHA256, old.manifestSHA256);
  // Whoever still has the old catalog finds its files.
  EXPECT_EQ(read(tree.text("public/downloads/orvex/packs/files/gece/1.0.0/shared/b.cube")), "bb");
  EXPECT_FALSE(QFile::exists(tree.text("public/downloads/finalcut/manifest.json")));

  const QByteArray now = read(tree.text(kManifest));
  EXPECT_FALSE(build(tree).changed);
  EXPECT_EQ(read(tree.text(kManifest)), now);
}

TEST_F(CatalogBuildTest, MendsWhatWasDamagedInThePublishedTree) {
  build(tree);
  const auto before = published(tree);
  tree.file("public/downloads/orvex/packs/files/gece/1.0.0/shared/b.cube", "xx");
  EXPECT_TRUE(build(tree).changed);
  EXPECT_EQ(read(tree.text("public/downloads/orvex/packs/files/gece/1.0.0/shared/b.cube")), "bb");
  EXPECT_EQ(published(tree).keys(), before.keys());
}

TEST_F(CatalogBuildTest, RefusesWhatNoPanelWouldTakeAndPublishesNothing) {
  build(tree);
  const auto before = published(tree);
  const struct {
    QByteArray file;
    QByteArray contents;
    QString fragment;
  } rows[]{
      {"packs/gece/shared/b.cube", "other", u"sürümü yükselt"_qs},
      {"packs/gece/shared/B.cube", "bb", u"iki kez"_qs},
      {"packs/gece/variants/öteki/a %20#?.cube", "", u"iki kez"_qs},
      {"packs/gece/shared/Installed.JSON", "", u"paket dosyası adı olamaz"_qs},
      {"packs/gece/shared/a\\b", "", u"paket dosyası adı olamaz"_qs},
      {"packs/gece/shared/\xff", "", u"UTF-8 değil"_qs},
      {"packs/gece/shared/sub/x.cube", "", u"sub"_qs},
      {"packs/gece/variants/başka/x", "", u"targets bu hedefi saymıyor"_qs},
      {"packs/gece/stray.cube", "", u"shared/ ya da"_qs},
      {"packs/x\ny/pack.json", R"({"name":"X","version":"1","targets":["a"]})",
       u"paket kimliği"_qs},
      {"packs/boş/shared/x", "", u"pack.json: yok"_qs},
      {"packs/p/pack.json", R"({"name":"X","version":1,"targets":["a"]})", u"\"version\""_qs},
      {"packs/p/pack.json", R"({"name":"X","version":"../1","targets":["a"]})",
       u"\"../1\" olamaz"_qs},
      {"packs/p/pack.json", R"({"name":" ","version":"1","targets":["a"]})", u"name boş"_qs},
      {"packs/p/pack.json", R"({"name":"X","version":"1","targets":[]})", u"targets boş"_qs},
      {"release.json", R"({"productId":"x","version":"2","downloadURL":"https://x/y"})",
       u"productId"_qs},
      {"release.json",
       R"({"productId":"vantrelo-orvex-finalcut","version":"2","downloadURL":"http://x/y"})",
       u"tam bir https adresi değil"_qs},
  };
  for (const auto& row : rows) {
    const TemporaryTree copy;
    std::filesystem::copy(tree.root().toStdString(), copy.root().toStdString(),
                          std::filesystem::copy_options::recursive);
    copy.file(row.file, row.contents);
    try {
      build(copy);
      ADD_FAILURE() << row.file.constData();
    } catch (const DescribedError& error) {
      EXPECT_TRUE(error.description().contains(row.fragment)) << qPrintable(error.description());
    }
    EXPECT_EQ(published(copy).size(), before.size()) << row.file.constData();
    EXPECT_EQ(read(copy.text(kManifest)), read(tree.text(kManifest))) << row.file.constData();
  }
  // A link would publish what it leads to.
  tree.link("packs/gece/shared/link.cube", "/etc/passwd");
  EXPECT_THROW(build(tree), DescribedError);
  EXPECT_EQ(published(tree), before);
}

}  // namespace
