#include "base/Sha256.h"
#include "cloud/CatalogBuild.h"
#include "services/UniversalPackCatalog.h"

namespace {

const QUrl kCatalogURL(u"https://packs.example/x/downloads/orvex/packs/manifest.json"_s);
constexpr auto kManifest = "public/downloads/orvex/packs/manifest.json";
constexpr auto kFile = "public/downloads/orvex/packs/files/gece/1.0.0/shared/b.cube";
constexpr auto kRelease = "public/downloads/finalcut/manifest.json";

// Everything published: names, bytes, times.
QMap<QString, std::pair<QByteArray, qint64>> published(const TemporaryTree& tree) {
  QMap<QString, std::pair<QByteArray, qint64>> files;
  const std::string root = tree.path("public").toStdString();
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
    if (const QString path = QString::fromStdString(entry.path()); entry.is_regular_file())
      files[path] = {contentsOf(path), entry.last_write_time().time_since_epoch().count()};
  return files;
}

CatalogBuild build(const TemporaryTree& tree) {
  return buildCatalog(Directory::open(tree.root()), kCatalogURL);
}

QString digestOf(const QByteArray& bytes) {
  return QString::fromLatin1(Sha256::of(bytes).toHex());
}

struct CatalogBuildTest : testing::Test {
  CatalogBuildTest() {
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
  [[nodiscard]] UniversalPackCatalog catalog() const {
    return UniversalPackCatalog::decode(tree.contents(kManifest));
  }

  TemporaryTree tree;
};

TEST_F(CatalogBuildTest, StatesWhatIsPublished) {
  EXPECT_TRUE(build(tree).changed);
  EXPECT_EQ(catalog().schemaVersion, 1);
  EXPECT_EQ(catalog().previousRevisionSHA256, std::nullopt);
  ASSERT_EQ(catalog().packs.size(), 1);
  const UniversalPack pack = catalog().packs[0];
  EXPECT_EQ(pack.id, u"gece"_s);
  EXPECT_EQ(pack.targets, (QStringList{u"final-cut"_s, u"öteki"_s}));
  ASSERT_EQ(pack.sharedAssets.size(), 2);
  EXPECT_EQ(pack.sharedAssets[0],
            (UniversalPackAsset{u"a %20#?.cube"_s, digestOf("aaa"), 3,
                                u"https://packs.example/x/downloads/orvex/packs/files/gece/1.0.0/"
                                u"shared/a%20%2520%23%3F.cube"_s}));
  EXPECT_EQ(pack.variants.value(u"öteki"_s).value(0).file, u"ığ.txt"_s);
  EXPECT_EQ(pack.manifestSHA256,
            digestOf(tree.contents("public/downloads/orvex/packs/manifests/gece/1.0.0.json")));
  EXPECT_EQ(tree.contents(kFile), "bb");
  EXPECT_TRUE(tree.contents(kRelease).contains("https://x/y"));
}

TEST_F(CatalogBuildTest, GivesTheSameForTheSameAndMendsWhatWasDamaged) {
  const CatalogBuild first = build(tree);
  const auto before = published(tree);
  const CatalogBuild again = build(tree);
  EXPECT_FALSE(again.changed);
  EXPECT_EQ(again.revision, first.revision);
  EXPECT_EQ(published(tree), before);

  const TemporaryTree other;
  pack(other, "1.0.0");
  EXPECT_EQ(build(other).revision, first.revision);
  EXPECT_EQ(other.contents(kManifest), tree.contents(kManifest));

  tree.file(kFile, "xx");
  EXPECT_TRUE(build(tree).changed);
  EXPECT_EQ(tree.contents(kFile), "bb");
  EXPECT_EQ(published(tree).keys(), before.keys());
}

TEST_F(CatalogBuildTest, FollowsOnWhatWasPublishedBefore) {
  build(tree);
  const QByteArray before = tree.contents(kManifest);
  const UniversalPack old = catalog().packs[0];
  pack(tree, "1.1.0");
  tree.file("packs/gece/shared/c.cube", "new");
  QFile::remove(tree.text("release.json"));
  EXPECT_TRUE(build(tree).changed);
  EXPECT_EQ(catalog().previousRevisionSHA256, digestOf(before));
  EXPECT_EQ(catalog().packs[0].rollback, (UniversalPackRollback{u"1.0.0"_s, old.manifestSHA256}));
  // Whoever still has the old catalog finds its files.
  EXPECT_EQ(tree.contents(kFile), "bb");
  EXPECT_FALSE(QFile::exists(tree.text(kRelease)));
  EXPECT_FALSE(build(tree).changed);
  // What once was 1.0.0 stays so, for the caches that hold it.
  pack(tree, "1.0.0");
  EXPECT_THROW(build(tree), CatalogSourceError);
  EXPECT_TRUE(QFile::remove(tree.text("packs/gece/shared/c.cube")));
  EXPECT_TRUE(build(tree).changed);
  EXPECT_TRUE(QFile::remove(tree.text("public/downloads/orvex/packs/manifests/gece/1.0.0.json")));
  tree.file("packs/gece/shared/b.cube", "other");
  EXPECT_THROW(build(tree), CatalogSourceError);
}

TEST_F(CatalogBuildTest, RefusesWhatNoPanelWouldTakeAndPublishesNothing) {
  build(tree);
  const auto described = [](const QByteArray& name, const QByteArray& version,
                            const QByteArray& targets) {
    return R"({"name":")" + name + R"(","version":)" + version + R"(,"targets":)" + targets + '}';
  };
  const auto release = [](const QByteArray& product, const QByteArray& url) {
    return R"({"productId":")" + product + R"(","version":"2","downloadURL":")" + url + R"("})";
  };
  const std::tuple<QByteArray, QByteArray, QString> rows[]{
      {"packs/gece/shared/b.cube", "other", u"sürümü yükselt"_s},
      {"packs/gece/shared/B.cube", "bb", u"iki kez"_s},
      {"packs/gece/variants/öteki/a %20#?.cube", "", u"iki kez"_s},
      {"packs/gece/shared/Installed.JSON", "", u"paket dosyası adı olamaz"_s},
      {"packs/gece/shared/\xff", "", u"UTF-8 değil"_s},
      {"packs/gece/variants/başka/x", "", u"targets bu hedefi saymıyor"_s},
      {"packs/gece/stray.cube", "", u"shared/ ya da"_s},
      {"packs/x\ny/pack.json", described("X", "\"1\"", R"(["a"])"), u"paket kimliği"_s},
      {"packs/p/pack.json", described("X", "1", R"(["a"])"), u"\"version\""_s},
      {"packs/p/pack.json", described("X", R"("../1")", R"(["a"])"), u"\"../1\" olamaz"_s},
      {"packs/p/pack.json", described("X", "\"1\"", "[]"), u"targets boş"_s},
      {"release.json", release("x", "https://x/y"), u"productId"_s},
      {"release.json", release("vantrelo-orvex-finalcut", "http://x/y"), u"tam bir https"_s},
  };
  for (const auto& [file, contents, fragment] : rows) {
    SCOPED_TRACE(file.constData());
    const TemporaryTree copy;
    copy.copyFrom(tree);
    copy.file(file, contents);
    try {
      build(copy);
      ADD_FAILURE();
    } catch (const DescribedError& error) {
      EXPECT_TRUE(error.description().contains(fragment)) << error.description();
    }
    EXPECT_EQ(published(copy).size(), published(tree).size());
    EXPECT_EQ(copy.contents(kManifest), tree.contents(kManifest));
  }
  // A link would publish what it leads to.
  const auto before = published(tree);
  tree.link("packs/gece/shared/link.cube", "/etc/passwd");
  EXPECT_THROW(build(tree), DescribedError);
  EXPECT_EQ(published(tree), before);
}

}  // namespace
