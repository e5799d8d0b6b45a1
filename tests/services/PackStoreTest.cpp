#include "base/FileError.h"
#include "base/FileUrl.h"
#include "services/UniversalInstalledRecord.h"
#include "services/UniversalPackClientError.h"
#include "support/TestPack.h"

namespace {

using Kind = UniversalPackClientError::Kind;

TestPack film(const QString& version = u"1"_s) {
  return {u"film"_s, version, {{u"a.cube"_s, version.toUtf8()}, {u"b.cube"_s, "second"}}};
}

// Before the first effect.
void expectRefused(const UniversalPack& pack, Kind kind) {
  const TemporaryTree tree;
  const auto fetch = [](const UniversalPackAsset&, const auto&) { FAIL() << "a request was made"; };
  try {
    PackStore(tree.path("packs")).install(pack, fetch, {});
    FAIL() << "installed";
  } catch (const UniversalPackClientError& error) {
    EXPECT_EQ(error.kind(), kind);
  }
  EXPECT_TRUE(tree.names(".").isEmpty());
}

TEST(PackNames, AreCheckedBeforeTheFirstEffect) {
  const QStringList none{{},        u"."_s,   u".."_s,     u"a/b"_s, u"../a"_s, u"/a"_s,
                         u"a\\b"_s, u"a\n"_s, u"\u0085"_s, QChar(0), u"a\0b"_s, QChar(0xdc00)};
  const TemporaryTree tree;
  const PackStore store(tree.path("packs"));
  film().installIn(store);
  for (const QString& name : none + QStringList{u".a"_s, QString(218, u'x'), QString(109, u'ş')}) {
    SCOPED_TRACE(name);
    TestPack test = film(name);
    expectRefused(test.pack, Kind::InvalidCatalog);
    test = film();
    test.pack.id = name;
    expectRefused(test.pack, Kind::InvalidCatalog);
    EXPECT_THROW(store.uninstall(name), UniversalPackClientError);
  }
  EXPECT_EQ(store.installedPacks().size(), 1);
  for (const QString& name : none + QStringList{u"installed.json"_s, u"INSTALLED.Json"_s,
                                                u"inſtalled.json"_s, QString(256, u'x')}) {
    SCOPED_TRACE(name);
    TestPack test = film();
    test.pack.variants[u"final-cut"_s] = {test.pack.sharedAssets.first()};
    test.pack.variants[u"final-cut"_s].first().file = name;
    expectRefused(test.pack, Kind::InvalidAsset);
  }
  store.uninstall(u"film"_s);
  for (const QString& name :
       {u"a..b"_s, u"~"_s, u"-rf"_s, u"a b"_s, u"Işık"_s, QString(217, u'x'), u"%2e%2e"_s}) {
    TestPack(name, name, {{name, "x"}}).installIn(store);
    EXPECT_EQ(store.installedPacks().size(), 1) << name;
    store.uninstall(name);
    EXPECT_TRUE(tree.names("packs").isEmpty()) << name;
  }
}

TEST(PackStore, RefusesWhatCannotBeFetchedBeforeItFetchesAnything) {
  TestPack test = film();
  UniversalPackAsset& asset = test.pack.sharedAssets[1];
  for (const char16_t* url :
       {u"", u"http://localhost/a", u"HTTPS://localhost/a", u"a", u"https://", u"https://a b/"}) {
    asset.url = QString::fromUtf16(url);
    expectRefused(test.pack, Kind::MissingURL);
  }
  asset.url.reset();
  expectRefused(test.pack, Kind::MissingURL);
  asset.url = u"https://localhost/"_s;
  for (const std::int64_t bytes : {std::int64_t{-1}, std::numeric_limits<std::int64_t>::max()}) {
    asset.bytes = bytes;
    expectRefused(test.pack, Kind::SizeMismatch);
  }
  const TemporaryTree tree;
  asset.bytes = std::int64_t{1} << 60;
  EXPECT_THROW(test.installIn(PackStore(tree.path("packs"))), FileError) << "there is no space";
  EXPECT_TRUE(tree.names("packs").isEmpty());
  test.pack.targets = {u"Final-Cut"_s};
  expectRefused(test.pack, Kind::InvalidCatalog);
}

TEST(PackStore, ReplacesAVersionByAnother) {
  const TemporaryTree tree;
  const PackStore store(tree.path("packs"));
  EXPECT_TRUE(store.installedPacks().isEmpty());
  film().installIn(store);
  TestPack second = film(u"2"_s);
  // The same file again, as a variant of this host.
  const QByteArray last = "from the variant";
  UniversalPackAsset again = second.pack.sharedAssets[0];
  again.bytes = last.size();
  again.sha256 = QString::fromLatin1(Sha256::of(last).toHex());
  second.pack.variants[u"final-cut"_s] = {again};
  Progress told;
  const auto before = QDateTime::currentDateTimeUtc();
  store.install(second.pack,
                [&](const UniversalPackAsset& asset, const auto& sink) {
                  EXPECT_EQ(tree.contents("packs/film/1/a.cube"), "1");
                  if (asset == again) return sink(last);
                  second.fetch()(asset, sink);
                },
                {.report = [&](Progress progress) {
                  EXPECT_GE(progress.done, told.done);
                  told = progress;
                }});

  EXPECT_EQ(tree.names("packs"), QStringList{u"film"_s});
  EXPECT_EQ(tree.names("packs/film"), QStringList{u"2"_s});
  EXPECT_THAT(tree.names("packs/film/2"),
              ElementsAre(u"a.cube"_s, u"b.cube"_s, u"installed.json"_s));
  EXPECT_EQ(tree.contents("packs/film/2/a.cube"), last);
  EXPECT_EQ(told, (Progress{1 + 6 + last.size(), 1 + 6 + last.size()}));

  const QByteArray record = tree.contents("packs/film/2/installed.json");
  const QByteArray date = record.split('\n').value(7).split(':').value(1).trimmed().chopped(1);
  EXPECT_EQ(record,
            "{\n    \"files\": [\n        \"a.cube\",\n        \"b.cube\",\n"
            "        \"a.cube\"\n    ],\n    \"id\": \"film\",\n    \"installedAt\": " +
                date + ",\n    \"name\": \"film 2\",\n    \"version\": \"2\"\n}\n");
  // Counted from 1 January 2001.
  const auto moment = QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC)
                          .addMSecs(static_cast<qint64>(date.toDouble() * 1000 + 0.5));
  EXPECT_TRUE(moment >= before && moment <= QDateTime::currentDateTimeUtc());
  EXPECT_EQ(UniversalInstalledRecord::decode(record).installedAt, moment);
}

TEST(PackStore, SweepsWhatIsLeftBehindAndNothingElse) {
  const TemporaryTree tree;
  const PackStore store(tree.path("packs"));
  const QByteArray uuid = "-00000000-0000-4000-8000-000000000001";
  tree.file("packs/.film" + uuid + "/1/a.cube");
  tree.fifo("packs/.fifo" + uuid);
  tree.link("packs/.link" + uuid, "../outside");
  tree.file("packs/.own/x");
  tree.file("outside/kept");
  // More files than are held open at once.
  QMap<QString, QByteArray> many;
  for (int i = 0; i < 150; ++i) many[QString::number(i)] = QByteArray::number(i);
  const TestPack other(u"other"_s, u"1"_s, many);
  const TestPack outer = film();
  // While one pack is under way another one is installed.
  store.install(outer.pack,
                [&](const auto& asset, const auto& sink) {
                  other.installIn(store);
                  outer.fetch()(asset, sink);
                },
                {});
  EXPECT_EQ(store.installedPacks().size(), 2);
  for (auto file = many.begin(); file != many.end(); ++file)
    EXPECT_EQ(tree.contents("packs/other/1/" + file.key().toUtf8()), *file);
  EXPECT_THAT(tree.names("packs"), ElementsAre(u".own"_s, u"film"_s, u"other"_s));
  EXPECT_EQ(tree.names("outside"), QStringList{u"kept"_s});
}

TEST(PackStore, FollowsNoLinkAndWaitsForNothingThatIsPlanted) {
  const QByteArray record = "packs/film/1/installed.json";
  const std::function<void(const TemporaryTree&)> plants[]{
      [](const auto& tree) { tree.link("packs/film", "../outside/film"); },
      [](const auto& tree) { tree.link("packs/film/1", "../../outside/film/1"); },
      [&](const auto& tree) { tree.link(record, "../../../outside/film/1/installed.json"); },
      [&](const auto& tree) { tree.fifo(record); },
      [&](const auto& tree) { tree.folder(record); },
      [&](const auto& tree) { tree.file(record, QByteArray(100'000, '[')); },
  };
  for (const auto& plant : plants) {
    SCOPED_TRACE(&plant - plants);
    for (const bool installs : {true, false}) {
      const TemporaryTree tree;
      film().installIn(PackStore(tree.path("outside")));
      plant(tree);
      const PackStore store(tree.path("packs"));
      EXPECT_TRUE(store.installedPacks().isEmpty());
      installs ? film().installIn(store) : store.uninstall(u"film"_s);
      EXPECT_EQ(store.installedPacks().size(), installs ? 1 : 0);
      EXPECT_EQ(tree.names("outside/film/1").size(), 3);
    }
  }
}

TEST(PackStore, ListsWhatHasARecordByName) {
  const TemporaryTree tree;
  const std::pair<const char*, const char*> records[]{
      {"x/1", "beta"},      {"d/1", "alpha"},        {"c/1", "Alpha"},
      {"b\xff/1", "gamma"}, {".hidden/1", "hidden"}, {"v/.hidden", "hidden"}};
  for (const auto& [folder, name] : records)
    tree.file("packs/" + QByteArray(folder) + "/installed.json",
              R"({"id":"i","name":")" + QByteArray(name) +
                  R"(","version":"1","installedAt":1.5,"files":[]})");
  tree.file("packs/none/1/a.cube");
  tree.file("packs/file");
  tree.file("packs/wrong/1/installed.json", "{}");
  const auto installed = PackStore(tree.path("packs")).installedPacks();
  QStringList names;
  for (const UniversalInstalledPack& pack : installed) names.append(pack.name);
  EXPECT_THAT(names, ElementsAre(u"Alpha"_s, u"alpha"_s, u"beta"_s, u"gamma"_s));
  EXPECT_EQ(filePath(installed.value(3).directoryURL), tree.path("packs/b\xff/1"));
}

}  // namespace
