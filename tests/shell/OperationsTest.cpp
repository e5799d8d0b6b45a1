// What the state does with the vendor's services, against a real server and a real store.
#include "shell/OrvexConfig.h"
#include "shell/PackOperations.h"
#include "shell/ReleaseCheck.h"
#include "shell/RequestSubmission.h"
#include "support/TestCloud.h"
#include "support/Wait.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

// Toasts as "kind seconds text".
template <typename Operations>
class Toasts {
 public:
  explicit Toasts(Operations& operations) {
    QObject::connect(
        &operations, &Operations::toast, &operations,
        [this](const QString& message, OrvexToast::Kind kind, double duration) {
          static const QStringList kKinds{u"success"_s, u"error"_s, u"info"_s};
          list_.append(
              u"%1 %2 %3"_s.arg(kKinds.at(static_cast<int>(kind))).arg(duration).arg(message));
        });
  }
  QStringList take() { return std::exchange(list_, {}); }

 private:
  QStringList list_;
};

TEST(Operations, ReleaseCheck) {
  TestCloud cloud;
  ReleaseCheck check(cloud.services().releases);
  Toasts toasts(check);
  const auto run = [&](bool silent) {
    check.start(silent);
    check.start(false);
    EXPECT_TRUE(check.state().checking);
    EXPECT_FALSE(check.state().lastError);
    EXPECT_TRUE(waitUntil([&] { return !check.state().checking; }));
    return toasts.take();
  };
  EXPECT_EQ(check.state(), ReleaseState{.latestVersion = OrvexConfig::version()});

  cloud.release(u"99.1"_s, {{u"notesURL"_s, u"https://orvex.example/n"_s},
                            {u"publishedAt"_s, u"dün"_s},
                            {u"mandatory"_s, true}});
  const ReleaseState newer{.latestVersion = u"99.1"_s,
                           .updateAvailable = true,
                           .downloadURL = QUrl(u"https://orvex.example/indir"_s),
                           .notesURL = QUrl(u"https://orvex.example/n"_s),
                           .publishedAt = u"dün"_s,
                           .mandatory = true};
  EXPECT_EQ(run(false), QStringList(u"info 3.2 Yeni sürüm hazır • 99.1"_s));
  EXPECT_EQ(check.state(), newer);
  EXPECT_EQ(cloud.server.requests().size(), 1) << "no second check while one runs";

  cloud.release(u"100"_s, {{u"productId"_s, u"Vantrelo-orvex-finalcut"_s}});
  ReleaseState failed = newer;
  failed.lastError = u"Manifest farklı bir Vantrelo ürünü için."_s;
  EXPECT_EQ(run(true), QStringList());
  EXPECT_EQ(check.state(), failed) << "the last known release stays";
  EXPECT_EQ(run(false), QStringList(u"error 5 Update Center • "_s + *failed.lastError));

  cloud.release(OrvexConfig::version(), {{u"downloadURL"_s, u"http://[kırık"_s}});
  EXPECT_EQ(run(true), QStringList());
  EXPECT_EQ(check.state(), ReleaseState{.latestVersion = OrvexConfig::version()});
  EXPECT_EQ(run(false), QStringList(u"success 3.2 Vantrelo Orvex güncel."_s));

  for (const auto& address : {u"http://orvex.example/a"_s, u"file:///etc/passwd"_s, u"https:///a"_s,
                              u"javascript:alert(1)"_s, u"/a"_s}) {
    cloud.release(u"99"_s, {{u"downloadURL"_s, address}});
    run(true);
    EXPECT_TRUE(check.state().downloadPage().isEmpty()) << "no browser gets " << address;
  }
}

class Packs : public testing::Test {
 protected:
  Packs() {
    cloud.pack(u"a"_s, u"Gece"_s, u"1.0"_s, QByteArray(100'000, 'a'));
    cloud.pack(u"b"_s, u"Sinema"_s, u"1.0"_s);
    cloud.publishCatalog();
    refresh(true);
    a = operations->packs().at(0);
    b = operations->packs().at(1);
  }

  void refresh(bool silent) {
    operations->refresh(silent);
    EXPECT_TRUE(waitUntil([&] { return !operations->isRefreshing(); }));
  }
  // Installs or removes it and returns the toasts.
  QStringList finish(void (PackOperations::*operation)(const UniversalPack&),
                     const UniversalPack& pack) {
    (operations.get()->*operation)(pack);
    EXPECT_TRUE(operations->busyIDs().contains(pack.id));
    EXPECT_TRUE(waitUntil([&] { return operations->busyIDs().isEmpty(); }));
    return toasts->take();
  }
  // The versions installed.
  [[nodiscard]] static QStringList versions(const QList<UniversalInstalledPack>& packs) {
    QStringList list;
    for (const UniversalInstalledPack& pack : packs) list.append(pack.id + u' ' + pack.version);
    return list;
  }
  // Begins an install of `a` that stands still at two fifths.
  void beginHeld() {
    cloud.hold(a.id);
    operations->install(a);
    EXPECT_TRUE(waitUntil([&] {
      return operations->activity(a.id)->progress == Progress{.done = 40'000, .total = 100'000};
    }));
  }

  TestCloud cloud;
  std::unique_ptr<PackOperations> operations = std::make_unique<PackOperations>(cloud.packs());
  std::unique_ptr<Toasts<PackOperations>> toasts =
      std::make_unique<Toasts<PackOperations>>(*operations);
  UniversalPack a;
  UniversalPack b;
};

TEST_F(Packs, EveryOutcomeIsTold) {
  EXPECT_EQ(toasts->take(), QStringList()) << "the first refresh was silent";
  refresh(false);
  EXPECT_EQ(toasts->take(), QStringList(u"success 3.2 2 Universal Pack bulundu."_s));

  cloud.server.answer(TestCloud::kCatalog, 500, "");
  refresh(true);
  EXPECT_EQ(toasts->take(), QStringList());
  EXPECT_EQ(operations->lastError(), u"Universal Pack HTTP 500"_s);
  refresh(false);
  EXPECT_EQ(toasts->take(), QStringList(u"error 5 Cloud Packs • Universal Pack HTTP 500"_s));
  EXPECT_EQ(operations->packs().size(), 2) << "the last catalog stays";
  // What was not to be silent is not silenced by a refresh that follows it.
  operations->refresh(false);
  refresh(true);
  EXPECT_EQ(toasts->take().size(), 1);

  EXPECT_EQ(finish(&PackOperations::install, a), QStringList(u"success 3.2 Gece yüklendi."_s));
  EXPECT_EQ(operations->lastError(), std::nullopt);
  EXPECT_EQ(versions(operations->installed()), QStringList(u"a 1.0"_s));

  UniversalPack newer = a;
  newer.version = u"1.1"_s;
  newer.sharedAssets[0].sha256 = QString(64, u'0');
  const QString mismatch = u"SHA-256 doğrulaması başarısız: look.cube"_s;
  EXPECT_EQ(finish(&PackOperations::install, newer),
            QStringList(u"error 6 Pack kurulamadı • "_s + mismatch));
  EXPECT_EQ(versions(operations->installed()), QStringList(u"a 1.0"_s));

  UniversalPack foreign;
  foreign.id = u".."_s;
  EXPECT_EQ(finish(&PackOperations::uninstall, foreign),
            QStringList(u"error 5 Pack kaldırılamadı • Universal Pack kataloğu geçersiz."_s));
  EXPECT_EQ(operations->lastError(), mismatch) << "a removal that fails leaves it";

  EXPECT_EQ(finish(&PackOperations::uninstall, a), QStringList(u"success 3.2 Gece kaldırıldı."_s));
  EXPECT_TRUE(operations->installed().isEmpty());

  cloud.server.answer(TestCloud::kCatalog, 200, R"({"schemaVersion":1,"revision":"","packs":[]})");
  refresh(false);
  EXPECT_EQ(toasts->take(), QStringList(u"success 3.2 0 Universal Pack bulundu."_s));
  EXPECT_TRUE(operations->packs().isEmpty());
}

TEST_F(Packs, OneOperationPerPackAndManyAtOnce) {
  beginHeld();
  operations->install(a);
  operations->uninstall(a);
  operations->install(b);
  EXPECT_TRUE(waitUntil([&] { return operations->busyIDs() == QSet{a.id}; }));
  refresh(true);
  EXPECT_EQ(operations->busyIDs(), QSet{a.id});
  EXPECT_EQ(toasts->take(), QStringList(u"success 3.2 Sinema yüklendi."_s));
  cloud.resume();
  EXPECT_TRUE(waitUntil([&] { return operations->busyIDs().isEmpty(); }));
  EXPECT_EQ(toasts->take(), QStringList(u"success 3.2 Gece yüklendi."_s));
  EXPECT_EQ(versions(operations->installed()), (QStringList{u"a 1.0"_s, u"b 1.0"_s}));
}

TEST_F(Packs, ACancelledInstallLeavesNothing) {
  beginHeld();
  operations->cancelInstall(a.id);
  EXPECT_TRUE(operations->activity(a.id)->cancelling);
  EXPECT_TRUE(waitUntil([&] { return operations->busyIDs().isEmpty(); }));
  EXPECT_EQ(toasts->take(), QStringList(u"info 3.2 Gece kurulumu iptal edildi."_s));
  EXPECT_EQ(operations->lastError(), std::nullopt);
  EXPECT_TRUE(cloud.packs().installedPacks().isEmpty());
  cloud.resume();
  EXPECT_EQ(finish(&PackOperations::install, a), QStringList(u"success 3.2 Gece yüklendi."_s));
}

TEST_F(Packs, ThePanelMayCloseDuringAnInstall) {
  beginHeld();
  operations.reset();
  cloud.resume();
  // The lock of the store is free again.
  cloud.packs().install(b);
  EXPECT_EQ(versions(cloud.packs().installedPacks()), QStringList(u"b 1.0"_s));
}

TEST(Operations, Requests) {
  TestCloud cloud;
  RequestSubmission submission(cloud.services().requests);
  Toasts toasts(submission);
  bool sending = false;
  QObject::connect(&submission, &RequestSubmission::sendingChanged, &submission,
                   [&](bool now) { sending = now; });
  HostSnapshot host{.sequenceName = u"Kurgu 1"_s};
  const auto send = [&] {
    submission.send(u" Başlık\n"_s, u"Ayrıntı "_s, u"motion"_s, host);
    submission.send(u"İkinci"_s, u"kez"_s, u"motion"_s, host);
    EXPECT_TRUE(sending);
    EXPECT_TRUE(waitUntil([&] { return !sending; }));
    return toasts.take();
  };
  submission.keepDraft(u"Başlık"_s, u"Ayrıntı"_s, u"motion"_s);
  submission.keepDraft(u" "_s, {}, u"audio"_s);
  cloud.server.answer(TestCloud::kRequests, 200, R"({"ok": false, "message": "Dolu."})");
  EXPECT_EQ(send(), QStringList(u"error 5 İstek Merkezi • Dolu."_s));
  EXPECT_EQ(submission.draft(), (RequestDraft{u"Başlık"_s, u"Ayrıntı"_s, u"motion"_s}));

  host.sequenceAvailable = true;
  cloud.server.answer(TestCloud::kRequests, 201, R"({"ok": true, "id": "R-7"})");
  EXPECT_EQ(send(), QStringList(u"success 3.2 Talep gönderildi • R-7"_s));
  EXPECT_FALSE(submission.hasDraft());

  QStringList sequences;
  for (const FaultServer::Request& request : cloud.server.requests()) {
    const QJsonObject body = QJsonDocument::fromJson(request.body).object();
    EXPECT_EQ(body[u"title"].toString() + body[u"description"].toString(), u"BaşlıkAyrıntı");
    sequences.append(body[u"diagnostics"][u"compName"].toString());
  }
  EXPECT_EQ(sequences, (QStringList{QString(), u"Kurgu 1"_s}));
}

}  // namespace
