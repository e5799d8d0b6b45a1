// What the state does with the vendor's services, against a real server and a real store.
#include "shell/OrvexConfig.h"
#include "shell/PackOperations.h"
#include "shell/ReleaseCheck.h"
#include "support/TestCloud.h"

namespace {

// Puts toasts into `list` as "kind seconds text".
template <typename Operations>
void record(Operations& operations, QStringList& list) {
  QObject::connect(
      &operations, &Operations::toast,
      [&list](const QString& message, OrvexToast::Kind kind, double duration) {
        list.append(QVariant::fromValue(kind).toString() + u" %1 %2"_s.arg(duration).arg(message));
      });
}
QString take(QStringList& list) {
  return std::exchange(list, {}).join(u'\n');
}

TEST(Operations, ReleaseCheck) {
  TestCloud cloud;
  QStringList toasts;
  ReleaseCheck check(cloud.services().releases);
  record(check, toasts);
  const auto run = [&](bool silent) {
    check.start(silent);
    check.start(false);
    EXPECT_TRUE(waitUntil([&] { return !check.state().checking; }));
    return take(toasts);
  };
  cloud.release(u"99.1"_s, {{u"notesURL"_s, u"https://orvex.example/n"_s},
                            {u"publishedAt"_s, u"dün"_s},
                            {u"mandatory"_s, true}});
  const ReleaseState newer{.latestVersion = u"99.1"_s,
                           .updateAvailable = true,
                           .downloadURL = QUrl(u"https://orvex.example/indir"_s),
                           .notesURL = QUrl(u"https://orvex.example/n"_s),
                           .publishedAt = u"dün"_s,
                           .mandatory = true};
  EXPECT_EQ(run(false), u"info 3.2 Yeni sürüm hazır • 99.1");
  EXPECT_EQ(check.state(), newer);
  EXPECT_EQ(cloud.server.requests().size(), 1) << "no second check while one runs";

  cloud.release(u"100"_s, {{u"productId"_s, u"Vantrelo-orvex-finalcut"_s}});
  ReleaseState failed = newer;
  failed.lastError = u"Manifest farklı bir Vantrelo ürünü için."_s;
  EXPECT_EQ(run(true), QString());
  EXPECT_EQ(check.state(), failed) << "the last known release stays";
  EXPECT_EQ(run(false), u"error 5 Update Center • "_s + *failed.lastError);

  cloud.release(OrvexConfig::version(), {{u"downloadURL"_s, u"http://[kırık"_s}});
  EXPECT_EQ(run(false), u"success 3.2 Vantrelo Orvex güncel.");
  EXPECT_EQ(check.state(), ReleaseState{.latestVersion = OrvexConfig::version()});
  for (const auto& address : {u"http://orvex.example/a"_s, u"https:///a"_s, u"/a"_s}) {
    cloud.release(u"99"_s, {{u"downloadURL"_s, address}});
    run(true);
    EXPECT_TRUE(check.state().downloadPage().isEmpty()) << "no browser gets " << address;
  }
}

struct Packs : testing::Test {
  Packs() {
    cloud.pack(u"a"_s, u"Gece"_s, u"1.0"_s, QByteArray(100'000, 'a'));
    cloud.publishCatalog();
    record(*operations, toasts);
    refresh(true);
    a = operations->packs().at(0);
  }

  QString refresh(bool silent) {
    operations->refresh(silent);
    EXPECT_TRUE(waitUntil([&] { return !operations->isRefreshing(); }));
    return take(toasts);
  }
  QString finish(void (PackOperations::*operation)(const UniversalPack&),
                 const UniversalPack& pack) {
    (operations.get()->*operation)(pack);
    EXPECT_TRUE(waitUntil([&] { return operations->busyIDs().isEmpty(); }));
    return take(toasts);
  }

  TestCloud cloud;
  QStringList toasts;
  std::unique_ptr<PackOperations> operations = std::make_unique<PackOperations>(cloud.packs());
  UniversalPack a;
};

TEST_F(Packs, EveryFailureIsToldAndLeavesWhatIsKnown) {
  cloud.server.answer(TestCloud::kCatalog, 500, "");
  EXPECT_EQ(refresh(true), QString());
  EXPECT_EQ(operations->lastError(), u"Universal Pack HTTP 500"_s);
  EXPECT_EQ(refresh(false), u"error 5 Cloud Packs • Universal Pack HTTP 500");
  EXPECT_EQ(operations->packs().size(), 1) << "the last catalog stays";
  // What was not to be silent is not silenced by a refresh that follows it.
  operations->refresh(false);
  EXPECT_EQ(refresh(true), u"error 5 Cloud Packs • Universal Pack HTTP 500");

  EXPECT_EQ(finish(&PackOperations::install, a), u"success 3.2 Gece yüklendi.");
  EXPECT_EQ(operations->lastError(), std::nullopt);
  UniversalPack newer = a;
  newer.version = u"1.1"_s;
  newer.sharedAssets[0].sha256 = QString(64, u'0');
  const QString mismatch = u"SHA-256 doğrulaması başarısız: look.cube"_s;
  EXPECT_EQ(finish(&PackOperations::install, newer), u"error 6 Pack kurulamadı • "_s + mismatch);
  EXPECT_EQ(operations->installed().value(0).version, u"1.0");
  UniversalPack foreign;
  foreign.id = u".."_s;
  EXPECT_EQ(finish(&PackOperations::uninstall, foreign),
            u"error 5 Pack kaldırılamadı • Universal Pack kataloğu geçersiz.");
  EXPECT_EQ(operations->lastError(), mismatch) << "a removal that fails leaves it";
}

TEST_F(Packs, OneOperationPerPackAndThePanelMayClose) {
  cloud.hold(a.id);
  operations->install(a);
  ASSERT_TRUE(waitUntil([&] { return operations->activity(a.id)->progress.done == 40'000; }));
  operations->install(a);
  operations->uninstall(a);
  EXPECT_EQ(operations->busyIDs(), QSet{a.id});
  operations.reset();
  EXPECT_TRUE(cloud.packs().installedPacks().isEmpty());
  cloud.resume();
  // The lock of the store is free again.
  cloud.packs().install(a);
}

}  // namespace
