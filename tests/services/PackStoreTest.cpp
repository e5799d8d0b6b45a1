#include "base/FileError.h"
#include "base/FileUrl.h"
#include "base/SmallFile.h"
#include "services/UniversalInstalledRecord.h"
#include "services/UniversalPackClientError.h"
#include "support/TemporaryTree.h"
#include "support/TestPack.h"

#include <gmock/gmock.h>
#include <limits>

using namespace orvex;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

using Kind = UniversalPackClientError::Kind;

QStringList namesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                QDir::NoDotAndDotDot);
}

QByteArray contents(const TemporaryTree& tree, const QByteArray& below) {
  return readSmallFile(AT_FDCWD, tree.path(below), 1'000'000).value_or("unreadable");
}

TestPack film(const QString& version = QStringLiteral("1")) {
  return {QStringLiteral("film"),
          version,
          {{QStringLiteral("a.cube"), version.toUtf8()}, {QStringLiteral("b.cube"), "second"}}};
}

void expectRefused(const UniversalPack& pack, Kind kind) {
  const TemporaryTree tree;
  const auto fetch = [](const UniversalPackAsset&, const auto&) { FAIL() << "a request was made"; };
  try {
    PackStore(tree.path("packs")).install(pack, fetch, {});
    FAIL() << "installed";
  } catch (const UniversalPackClientError& error) {
    EXPECT_EQ(error.kind(), kind);
  }
  EXPECT_TRUE(namesIn(tree.text(".")).isEmpty());
}

const QStringList kNoNames{QString(),
                           QStringLiteral("."),
                           QStringLiteral(".."),
                           QStringLiteral("a/b"),
                           QStringLiteral("../a"),
                           QStringLiteral("/a"),
                           QStringLiteral("a\\b"),
                           QStringLiteral("a\n"),
                           QStringLiteral("\u0085"),
                           QString(QChar(0)),
                           QStringLiteral("a") + QChar(0) + u'b',
                           QString(QChar(0xdc00))};

TEST(PackNames, AreCheckedBeforeTheFirstEffect) {
  const TemporaryTree tree;
  tree.file("packs/film/1/x");
  QStringList bad = kNoNames;
  bad << QStringLiteral(".a") << QString(218, u'x') << QString(109, u'\u015f');
  for (const QString& name : bad) {
    SCOPED_TRACE(name);
    TestPack test = film();
    test.pack.id = name;
    expectRefused(test.pack, Kind::InvalidCatalog);
    test = film(name);
    expectRefused(test.pack, Kind::InvalidCatalog);
    EXPECT_THROW(PackStore(tree.path("packs")).uninstall(name), UniversalPackClientError);
  }
  EXPECT_TRUE(QFile::exists(tree.text("packs/film/1/x")));

  bad = kNoNames;
  bad << QStringLiteral("installed.json") << QStringLiteral("INSTALLED.Json")
      << QStringLiteral("in\u017ftalled.json") << QString(256, u'x');
  for (const QString& name : bad) {
    SCOPED_TRACE(name);
    TestPack test = film();
    test.pack.variants[QStringLiteral("final-cut")] = {test.pack.sharedAssets.first()};
    test.pack.variants[QStringLiteral("final-cut")].first().file = name;
    expectRefused(test.pack, Kind::InvalidAsset);
  }

  for (const QString& name :
       {QStringLiteral("a..b"), QStringLiteral("~"), QStringLiteral("-rf"), QStringLiteral("a b"),
        QStringLiteral("Işık"), QString(217, u'x'), QStringLiteral("%2e%2e")}) {
    const TemporaryTree fresh;
    const PackStore store(fresh.path("packs"));
    const TestPack test(name, name, {{name, "x"}});
    test.installIn(store);
    EXPECT_EQ(store.installedPacks().size(), 1) << name.toStdString();
    store.uninstall(name);
    EXPECT_TRUE(namesIn(fresh.text("packs")).isEmpty()) << name.toStdString();
  }
}

TEST(PackStore, RefusesWhatCannotBeFetchedBeforeItFetchesAnything) {
  TestPack test = film();
  for (const auto& url :
       {std::optional<QString>(), std::optional(QString()),
        std::optional(QStringLiteral("http://localhost/a")),
        std::optional(QStringLiteral("HTTPS://localhost/a")), std::optional(QStringLiteral("a")),
        std::optional(QStringLiteral("https://")), std::optional(QStringLiteral("https://a b/"))}) {
    test.pack.sharedAssets[1].url = url;
    expectRefused(test.pack, Kind::MissingURL);
  }
  test = film();
  test.pack.sharedAssets[1].bytes = -1;
  expectRefused(test.pack, Kind::SizeMismatch);
  test.pack.sharedAssets[1].bytes = std::numeric_limits<std::int64_t>::max();
  expectRefused(test.pack, Kind::SizeMismatch);
  test = film();
  test.pack.targets = {QStringLiteral("Final-Cut")};
  expectRefused(test.pack, Kind::InvalidCatalog);

  const TemporaryTree tree;
  test = film();
  test.pack.sharedAssets[1].bytes = std::int64_t{1} << 60;
  const PackStore store(tree.path("packs"));
  try {
    test.installIn(store);
    FAIL() << "installed";
  } catch (const FileError& error) {
    EXPECT_EQ(error.code(), ENOSPC);
  }
  EXPECT_TRUE(namesIn(tree.text("packs")).isEmpty());
}

TEST(PackStore, ReplacesAVersionByAnother) {
  const TemporaryTree tree;
  const PackStore store(tree.path("packs"));
  EXPECT_TRUE(store.installedPacks().isEmpty());
  film().installIn(store);
  TestPack second = film(QStringLiteral("2"));
  // The same file again, as a variant of this host.
  const QByteArray last = "from the variant";
  UniversalPackAsset again = second.pack.sharedAssets[0];
  again.bytes = last.size();
  again.sha256 = QString::fromLatin1(Sha256::of(last).toHex());
  second.pack.variants[QStringLiteral("final-cut")] = {again};
  Progress told;
  const WorkControl control{.report = [&](Progress progress) {
    EXPECT_GE(progress.done, told.done);
    told = progress;
  }};
  const auto before = QDateTime::currentDateTimeUtc();
  store.install(
      second.pack,
      [&](const UniversalPackAsset& asset, const auto& sink) {
        EXPECT_EQ(contents(tree, "packs/film/1/a.cube"), "1");
        if (asset == again)
          sink(last);
        else
          second.fetch()(asset, sink);
      },
      control);

  EXPECT_EQ(namesIn(tree.text("packs")), QStringList{QStringLiteral("film")});
  EXPECT_EQ(namesIn(tree.text("packs/film")), QStringList{QStringLiteral("2")});
  EXPECT_THAT(namesIn(tree.text("packs/film/2")),
              ElementsAre(QStringLiteral("a.cube"), QStringLiteral("b.cube"),
                          QStringLiteral("installed.json")));
  EXPECT_EQ(contents(tree, "packs/film/2/a.cube"), last);
  EXPECT_EQ(told, (Progress{1 + 6 + last.size(), 1 + 6 + last.size()}));

  const QByteArray record = contents(tree, "packs/film/2/installed.json");
  const QByteArray date = record.split('\n').value(7).split(':').value(1).trimmed().chopped(1);
  EXPECT_EQ(record,
            "{\n    \"files\": [\n        \"a.cube\",\n        \"b.cube\",\n"
            "        \"a.cube\"\n    ],\n    \"id\": \"film\",\n    \"installedAt\": " +
                date + ",\n    \"name\": \"film 2\",\n    \"version\": \"2\"\n}\n");
  // Counted from 1 January 2001.
  const auto moment = QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC)
                          .addMSecs(static_cast<qint64>(date.toDouble() * 1000 + 0.5));
  EXPECT_GE(moment, before);
  EXPECT_LE(moment, QDateTime::currentDateTimeUtc());
  EXPECT_EQ(UniversalInstalledRecord::decode(record).installedAt, moment);
}

TEST(PackStore, KeepsWhatIsThereWhenAFileIsNotWhatItShouldBe) {
  const TemporaryTree tree;
  const PackStore store(tree.path("packs"));
  film().installIn(store);
  const auto installed = store.installedPacks();
  const TestPack next = film(QStringLiteral("2"));
  qsizetype taken = 0;
  const auto with = [&](const QByteArray& body) {
    return [&, body](const UniversalPackAsset& asset, const auto& sink) {
      if (asset.file == u"a.cube") return next.fetch()(asset, sink);
      taken = 0;
      for (const char byte : body) {
        sink(QByteArrayView(&byte, 1));
        ++taken;
      }
    };
  };
  const auto upperCase = [&] {
    UniversalPack pack = next.pack;
    pack.sharedAssets[1].sha256 = pack.sharedAssets[1].sha256.toUpper();
    return pack;
  }();
  const struct {
    UniversalPack pack;
    QByteArray body;
    QString text;
  } cases[]{{next.pack, "secon", QStringLiteral("Dosya boyutu doğrulanamadı: b.cube")},
            {next.pack, "second and on", QStringLiteral("Dosya boyutu doğrulanamadı: b.cube")},
            {next.pack, "Second", QStringLiteral("SHA-256 doğrulaması başarısız: b.cube")},
            {upperCase, "second", QStringLiteral("SHA-256 doğrulaması başarısız: b.cube")}};
  for (const auto& [pack, body, text] : cases) {
    try {
      store.install(pack, with(body), {});
      FAIL() << body.constData();
    } catch (const UniversalPackClientError& error) {
      EXPECT_EQ(error.description(), text);
    }
    EXPECT_LE(taken, 6);
    EXPECT_EQ(store.installedPacks(), installed);
    EXPECT_EQ(namesIn(tree.text("packs")), QStringList{QStringLiteral("film")});
  }

  std::stop_source stop;
  EXPECT_THROW(store.install(next.pack,
                             [&](const auto& asset, const auto& sink) {
                               stop.request_stop();
                               next.fetch()(asset, sink);
                             },
                             {.stop = stop.get_token()}),
               Stopped);
  EXPECT_EQ(store.installedPacks(), installed);
  EXPECT_EQ(namesIn(tree.text("packs")), QStringList{QStringLiteral("film")});
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
  const TestPack other(QStringLiteral("other"), QStringLiteral("1"), many);
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
    EXPECT_EQ(contents(tree, "packs/other/1/" + file.key().toUtf8()), *file);
  EXPECT_THAT(namesIn(tree.text("packs")),
              UnorderedElementsAre(QStringLiteral(".own"), QStringLiteral("film"),
                                   QStringLiteral("other")));
  EXPECT_TRUE(QFile::exists(tree.text("outside/kept")));
}

TEST(PackStore, FollowsNoLinkAndWaitsForNothingThatIsPlanted) {
  const auto plant = [](const TemporaryTree& tree, int which) {
    tree.folder("packs/film/1");
    switch (which) {
      case 0:
        ::rmdir(tree.path("packs/film/1").constData());
        ::rmdir(tree.path("packs/film").constData());
        return tree.link("packs/film", "../outside/film");
      case 1:
        ::rmdir(tree.path("packs/film/1").constData());
        return tree.link("packs/film/1", "../../outside/film/1");
      case 2:
        return tree.link("packs/film/1/installed.json", "../../../outside/film/1/installed.json");
      case 3:
        return tree.fifo("packs/film/1/installed.json");
      case 4:
        return tree.folder("packs/film/1/installed.json");
      default:
        return tree.file("packs/film/1/installed.json", QByteArray(100'000, '['));
    }
  };
  for (int which = 0; which < 6; ++which) {
    SCOPED_TRACE(which);
    for (const bool installs : {true, false}) {
      const TemporaryTree tree;
      film().installIn(PackStore(tree.path("outside")));
      plant(tree, which);
      const PackStore store(tree.path("packs"));
      EXPECT_TRUE(store.installedPacks().isEmpty());
      if (installs)
        film().installIn(store);
      else
        store.uninstall(QStringLiteral("film"));
      EXPECT_EQ(store.installedPacks().size(), installs ? 1 : 0);
      EXPECT_EQ(PackStore(tree.path("outside")).installedPacks().size(), 1);
      EXPECT_EQ(contents(tree, "outside/film/1/a.cube"), "1");
    }
  }
}

TEST(PackStore, ListsWhatHasARecordByName) {
  const TemporaryTree tree;
  const auto record = [&](const QByteArray& folder, const QByteArray& name) {
    tree.file("packs/" + folder + "/installed.json",
              R"({"id":"i","name":")" + name + R"(","version":"1","installedAt":1.5,"files":[]})");
  };
  record("x/1", "beta");
  record("d/1", "alpha");
  record("c/1", "Alpha");
  record("b\xff/1", "gamma");
  record(".hidden/1", "hidden");
  record("v/.hidden", "hidden");
  tree.file("packs/none/1/a.cube");
  tree.file("packs/file");
  tree.file("packs/wrong/1/installed.json", "{}");
  QStringList names;
  QList<QByteArray> folders;
  for (const UniversalInstalledPack& pack : PackStore(tree.path("packs")).installedPacks()) {
    names.append(pack.name);
    folders.append(filePath(pack.directoryURL));
  }
  EXPECT_THAT(names, ElementsAre(QStringLiteral("Alpha"), QStringLiteral("alpha"),
                                 QStringLiteral("beta"), QStringLiteral("gamma")));
  EXPECT_EQ(folders.value(3), tree.path("packs/b\xff/1"));
}

}  // namespace
