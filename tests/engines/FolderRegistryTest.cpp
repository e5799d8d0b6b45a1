#include "base/FileUrl.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "support/NoSystem.h"

namespace {

struct FolderRegistryTest : testing::Test, protected NoFolders {
  FolderRegistryTest() { qputenv("XDG_CACHE_HOME", folder.path("cache")); }

  void grant(const QUrl& root, const QString& engine = u"lutFolder"_qs) {
    settings.setValue(u"vantrelo.orvex.finalcut."_qs + engine + u"Bookmark"_qs,
                      QByteArray("grant:" + root.toEncoded()));
  }
  [[nodiscard]] static bool finish(const FolderRegistry& registry) {
    return waitUntil([&] { return !registry.isScanning(); });
  }
};

TEST_F(FolderRegistryTest, ScansTheGrantedFolderAtOnce) {
  const TemporaryTree tree;
  for (const char* file : {"b.cube", "A/A.moti", "A/B.moti", "A/C.motr"}) tree.file(file);
  for (const QString& engine : {u"lutFolder"_qs, u"motionTemplates"_qs, u"fxplugFolder"_qs})
    grant(fileUrl(tree.root()), engine);
  LUTRegistry luts(store);
  const MotionTemplateRegistry motion(store);
  const FxPlugRegistry fxplug(store);
  ASSERT_TRUE(finish(luts) && finish(motion) && finish(fxplug));
  EXPECT_EQ(access.everUsed, QList<QUrl>(3, fileUrl(tree.root())));
  EXPECT_EQ(luts.summary().detail, QString::fromUtf8(tree.root()));
  EXPECT_EQ(luts.scanDone(), 1);
  EXPECT_EQ(motion.count(MotionTemplateKind::Title), 2);
  EXPECT_EQ(fxplug.items().value(0).name, u"A");
  EXPECT_THAT(access.used, IsEmpty());
  EXPECT_FALSE(access.stoppedUnused);
}

TEST_F(FolderRegistryTest, GoesThroughItsStates) {
  const TemporaryTree tree;
  LUTRegistry luts(store);
  EXPECT_EQ(luts.summary(), (EngineSummary{EngineHealth::NeedsAccess, u"LUT Library"_qs,
                                           u".cube klasörüne erişim ver."_qs, 0}));
  luts.chooseFolder();
  luts.chooseFolder();
  EXPECT_EQ(access.asked, QStringList{u"LUT klasörünü seç|Seç"_qs});
  access.answer(std::nullopt);
  luts.chooseFolder();
  // What cannot be granted lasts as long as the panel.
  access.canGrant = false;
  access.answer(fileUrl(tree.root()));
  ASSERT_TRUE(finish(luts));
  EXPECT_TRUE(log.lines.value(0).contains(u"bookmark write error no grant"));
  EXPECT_EQ(luts.rootURL(), fileUrl(tree.root()));
  EXPECT_EQ(luts.health(), EngineHealth::Empty);
  // The next choice begins there.
  luts.chooseFolder();
  EXPECT_EQ(access.asked.constLast(), u"LUT klasörünü seç|Seç"_qs + fileUrl(tree.root()).path());
  access.answer(std::nullopt);
  // What is dropped is as good as what was chosen: the next panel finds it again.
  const TemporaryTree dropped;
  dropped.file("\xFF/x.cube");
  QStringList refused;
  QObject::connect(&luts, &LUTRegistry::refused, &luts,
                   [&](const QString& reason) { refused.append(reason); });
  luts.useFolder(fileUrl(dropped.root()));
  EXPECT_FALSE(luts.isScanning());
  ASSERT_TRUE(waitUntil([&] { return refused == QStringList{u"no grant"_s}; }));
  EXPECT_EQ(luts.rootURL(), fileUrl(tree.root()));
  access.canGrant = true;
  luts.useFolder(fileUrl(dropped.path("\xFF/")));
  ASSERT_TRUE(waitUntil([&] { return luts.health() == EngineHealth::Ready; }));
  const LUTRegistry next(store);
  ASSERT_TRUE(finish(next));
  EXPECT_EQ(next.rootURL(), fileUrl(dropped.path("\xFF")));
  EXPECT_EQ(next.items(), luts.items());
}

TEST_F(FolderRegistryTest, AGrantIsRenewedWhenStaleAndKeptWhenItCannotBe) {
  const QString key = u"key"_qs;
  const QByteArray good = "grant:file:///a/b", stale = "stale:file:///a/b";
  const QUrl root(u"file:///a/b"_qs);
  const QString error = u"[Vantrelo Orvex] bookmark resolve error no "_qs;
  // What is stored, whether a grant can be made, what is restored, stored then, and logged.
  const std::tuple<QVariant, bool, std::optional<QUrl>, QVariant, QStringList> rows[]{
      {u"text"_qs, true, {}, u"text"_qs, {}},
      {QByteArray("x"), true, {}, QByteArray("x"), {error + u"such grant"_qs}},
      {good, false, root, good, {}},
      {stale, true, root, good, {}},
      {stale, false, {}, stale, {error + u"grant"_qs}},
  };
  for (const auto& [entry, canGrant, restored, after, lines] : rows) {
    settings.setValue(key, entry);
    access.stale = entry == stale;
    access.canGrant = canGrant;
    log.lines.clear();
    Background background;
    std::optional<QUrl> found;
    store.restoreDirectory(key, background, [&](const std::optional<QUrl>& url) { found = url; });
    ASSERT_TRUE(waitUntil([&] { return !background.isRunning(); }));
    EXPECT_EQ(found, restored) << qPrintable(entry.toString());
    EXPECT_EQ(settings.value(key), after);
    EXPECT_EQ(log.lines, lines);
  }
}

TEST_F(FolderRegistryTest, TheNewestScanWinsAndAnAbandonedOneEnds) {
  const TemporaryTree many;
  for (int i = 0; i < 3000; ++i) many.file(QByteArray::number(i) + ".cube");
  const TemporaryTree one;
  one.file("one.cube");
  grant(fileUrl(many.root()));
  auto abandoned = std::make_unique<LUTRegistry>(store);
  abandoned->chooseFolder();
  abandoned.reset();
  access.answer(fileUrl(many.root()));

  LUTRegistry luts(store);
  QList<qsizetype> published;
  QObject::connect(&luts, &LUTRegistry::changed, &luts, [&] {
    if (!luts.isScanning()) published.append(luts.items().size());
  });
  for (int i = 0; i < 5; ++i) luts.scan();
  luts.chooseFolder();
  access.answer(fileUrl(one.root()));
  ASSERT_TRUE(finish(luts));
  // Long enough for what was superseded to speak up.
  const LUTRegistry other(store);
  ASSERT_TRUE(finish(other));
  EXPECT_THAT(published, ElementsAre(1));
  EXPECT_EQ(luts.items().value(0).name(), u"one");
  EXPECT_THAT(access.used, IsEmpty());
}

TEST(EngineHealth, IsItsRawValueAndNoOther) {
  const std::pair<EngineHealth, QStringView> rows[]{{EngineHealth::Ready, u"ready"},
                                                    {EngineHealth::NeedsAccess, u"needsAccess"},
                                                    {EngineHealth::Empty, u"empty"},
                                                    {EngineHealth::Unavailable, u"unavailable"},
                                                    {EngineHealth::Error, u"error"}};
  for (const auto& [health, raw] : rows) {
    EXPECT_EQ(rawValue(health), raw);
    EXPECT_EQ(engineHealthFromRawValue(raw), health);
  }
  EXPECT_EQ(engineHealthFromRawValue(u"Ready"), std::nullopt);
}

}  // namespace
