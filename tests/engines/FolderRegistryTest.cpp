#include "engines/FolderBookmarkStore.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "engines/ScriptedAccess.h"
#include "support/TemporaryTree.h"
#include "support/Wait.h"

#include <QDir>
#include <QSettings>
#include <QSignalSpy>

#include <gmock/gmock.h>

using namespace orvex;

namespace {

class FolderRegistryTest : public testing::Test {
 protected:
  FolderRegistryTest() { qputenv("XDG_CACHE_HOME", folder.path("cache")); }

  [[nodiscard]] static QUrl url(const TemporaryTree& tree) {
    return QUrl::fromLocalFile(QString::fromUtf8(tree.root()));
  }
  void grant(const QString& key, const QUrl& root) {
    settings.setValue(key, QByteArray("grant:" + root.toEncoded()));
  }
  void grantLuts(const QUrl& root) {
    grant(QStringLiteral("vantrelo.orvex.finalcut.lutFolderBookmark"), root);
  }
  [[nodiscard]] static bool finish(const FolderRegistry& registry) {
    return waitUntil([&] { return !registry.isScanning(); });
  }

  TemporaryTree folder;
  QSettings settings{folder.text("settings"), QSettings::IniFormat};
  ScriptedAccess access;
  RecordedLog log;
  FolderBookmarkStore store{access, settings, log};
};

TEST_F(FolderRegistryTest, WithoutAGrantItAsksForAccess) {
  const LUTRegistry luts(store);
  const MotionTemplateRegistry motion(store);
  const FxPlugRegistry fxplug(store);
  EXPECT_EQ(luts.summary(), (EngineSummary{EngineHealth::NeedsAccess, QStringLiteral("LUT Library"),
                                           QStringLiteral(".cube klasörüne erişim ver."), 0}));
  EXPECT_EQ(motion.summary(),
            (EngineSummary{EngineHealth::NeedsAccess, QStringLiteral("Motion Templates"),
                           QStringLiteral("Motion Templates klasörüne erişim ver."), 0}));
  EXPECT_EQ(fxplug.summary(),
            (EngineSummary{EngineHealth::NeedsAccess, QStringLiteral("FxPlug Registry"),
                           QStringLiteral("FxPlug klasörüne erişim ver."), 0}));
  EXPECT_EQ(motion.count(MotionTemplateKind::Title), 0);
  EXPECT_FALSE(luts.isScanning());
  EXPECT_EQ(luts.rootURL(), std::nullopt);
}

TEST_F(FolderRegistryTest, ScansTheGrantedFolderAtOnce) {
  const TemporaryTree tree;
  tree.file("b.cube");
  tree.file("A/A.moti");
  tree.file("A/B.moti");
  tree.file("A/C.motr");
  grantLuts(url(tree));
  grant(QStringLiteral("vantrelo.orvex.finalcut.motionTemplatesBookmark"), url(tree));
  grant(QStringLiteral("vantrelo.orvex.finalcut.fxplugFolderBookmark"), url(tree));
  LUTRegistry luts(store);
  const MotionTemplateRegistry motion(store);
  const FxPlugRegistry fxplug(store);
  EXPECT_TRUE(luts.isScanning());
  EXPECT_EQ(access.used, QList<QUrl>(3, url(tree)));
  ASSERT_TRUE(finish(luts) && finish(motion) && finish(fxplug));
  EXPECT_EQ(luts.summary(), (EngineSummary{EngineHealth::Ready, QStringLiteral("LUT Library"),
                                           QString::fromUtf8(tree.root()), 1}));
  EXPECT_EQ(motion.count(MotionTemplateKind::Title), 2);
  EXPECT_EQ(motion.summary().count, 3);
  EXPECT_EQ(fxplug.items().value(0).name, u"A");
  EXPECT_EQ(luts.matching(u"B").size(), 1);
  EXPECT_THAT(access.used, testing::IsEmpty());
  EXPECT_FALSE(access.stoppedUnused);
}

TEST_F(FolderRegistryTest, ChoosingAFolderScansItAndCancellingChangesNothing) {
  const TemporaryTree tree;
  tree.file("a.cube");
  LUTRegistry luts(store);
  const QSignalSpy changed(&luts, &LUTRegistry::changed);
  luts.chooseFolder();
  luts.chooseFolder();
  EXPECT_THAT(access.asked, testing::ElementsAre(QStringLiteral("LUT klasörünü seç|Seç")));
  access.answer(std::nullopt);
  EXPECT_EQ(changed.size(), 0);
  luts.chooseFolder();
  access.answer(url(tree));
  EXPECT_EQ(luts.rootURL(), url(tree));
  ASSERT_TRUE(finish(luts));
  EXPECT_EQ(luts.items().size(), 1);
  // The next panel finds it again.
  LUTRegistry next(store);
  ASSERT_TRUE(finish(next));
  EXPECT_EQ(next.items(), luts.items());
  for (const auto& [registry, title] :
       {std::pair<std::shared_ptr<FolderRegistry>, QString>{
            std::make_shared<MotionTemplateRegistry>(store),
            QStringLiteral("Motion Templates klasörünü seç|Seç")},
        {std::make_shared<FxPlugRegistry>(store), QStringLiteral("FxPlug klasörünü seç|Seç")}}) {
    registry->chooseFolder();
    EXPECT_EQ(access.asked.last(), title);
  }
}

TEST_F(FolderRegistryTest, GoesThroughItsStates) {
  auto tree = std::make_unique<TemporaryTree>();
  grantLuts(url(*tree));
  access.bracketed = false;
  LUTRegistry luts(store);
  ASSERT_TRUE(finish(luts));
  EXPECT_EQ(luts.health(), EngineHealth::Empty);
  tree->file("a.cube");
  luts.scan();
  EXPECT_EQ(luts.health(), EngineHealth::Empty);
  ASSERT_TRUE(finish(luts));
  EXPECT_EQ(luts.health(), EngineHealth::Ready);
  EXPECT_EQ(luts.lastError(), std::nullopt);
  const QString path = QString::fromUtf8(tree->root());
  tree.reset();
  luts.scan();
  ASSERT_TRUE(finish(luts));
  EXPECT_EQ(luts.health(), EngineHealth::Error);
  EXPECT_THAT(luts.items(), testing::IsEmpty());
  EXPECT_EQ(luts.lastError(), QStringLiteral("\"%1\" klasörü bulunamadı. Taşındıysa ya da "
                                             "silindiyse klasörü yeniden seç.")
                                  .arg(path));
  QDir().mkpath(path);
  luts.scan();
  ASSERT_TRUE(finish(luts));
  EXPECT_EQ(luts.health(), EngineHealth::Empty);
  EXPECT_EQ(luts.lastError(), std::nullopt);
  QDir(path).removeRecursively();
}

TEST_F(FolderRegistryTest, TheNewestScanWins) {
  const TemporaryTree many;
  for (int i = 0; i < 3000; ++i) many.file("f" + QByteArray::number(i) + ".cube");
  const TemporaryTree one;
  one.file("one.cube");
  grantLuts(url(many));
  LUTRegistry luts(store);
  QList<qsizetype> published;
  QObject::connect(&luts, &LUTRegistry::changed, &luts, [&] {
    if (!luts.isScanning()) published.append(luts.items().size());
  });
  for (int i = 0; i < 5; ++i) luts.scan();
  luts.chooseFolder();
  access.answer(url(one));
  ASSERT_TRUE(finish(luts));
  // Long enough for what was superseded to speak up.
  LUTRegistry other(store);
  ASSERT_TRUE(finish(other));
  EXPECT_THAT(published, testing::ElementsAre(1));
  EXPECT_EQ(luts.items().value(0).name, u"one");
  EXPECT_THAT(access.used, testing::IsEmpty());
  EXPECT_FALSE(access.stoppedUnused);
}

TEST_F(FolderRegistryTest, MayGoWhileItScansOrAsks) {
  const TemporaryTree tree;
  for (int i = 0; i < 3000; ++i) tree.file("f" + QByteArray::number(i) + ".cube");
  grantLuts(url(tree));
  auto luts = std::make_unique<LUTRegistry>(store);
  luts->chooseFolder();
  luts.reset();
  EXPECT_THAT(access.used, testing::IsEmpty());
  access.answer(url(tree));
  QCoreApplication::processEvents();
}

TEST_F(FolderRegistryTest, ReportsItsProgress) {
  const TemporaryTree tree;
  for (int i = 0; i < 500; ++i) tree.file("f" + QByteArray::number(i) + ".cube");
  grantLuts(url(tree));
  LUTRegistry luts(store);
  const QSignalSpy progress(&luts, &LUTRegistry::scanProgressChanged);
  ASSERT_TRUE(finish(luts));
  EXPECT_FALSE(progress.isEmpty());
  EXPECT_EQ(luts.scanTotal(), 500);
  EXPECT_EQ(luts.scanDone(), 500);
}

}  // namespace
