#pragma once

#include "services/OrvexServices.h"
#include "services/UniversalPackCatalog.h"
#include "support/FaultServer.h"
#include "support/TestPack.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace orvex {

/// The vendor's services on a server of the test's own, and an empty store of packs. What was not
/// told what to answer says nothing.
class TestCloud {
 public:
  TestCloud() {
    for (const char* path : {kManifest, kCatalog, kRequests})
      server.on(path, [](FaultServer::Peer& peer, const auto&) { peer.stall(); });
  }
  ~TestCloud() { resume(); }

  /// The paths of the services.
  static constexpr auto kManifest = "/downloads/finalcut/manifest.json";
  static constexpr auto kCatalog = "/downloads/orvex/packs/manifest.json";
  static constexpr auto kRequests = "/api/orvex/requests";

  [[nodiscard]] OrvexServices services() const {
    return {ReleaseCenterClient(server.url(kManifest), server.options()),
            UniversalPackClient(server.url(kCatalog), store_.path(), server.options()),
            RequestCenterClient(server.url(kRequests), server.options())};
  }
  [[nodiscard]] UniversalPackClient packs() const { return services().packs; }

  /// The folder of the store.
  [[nodiscard]] QString store() const { return store_.path(); }

  /// Publishes a release, its manifest completed or changed by `fields`.
  void release(const QString& version, const QJsonObject& fields = {}) {
    QJsonObject manifest{
        {QStringLiteral("productId"), QStringLiteral("vantrelo-orvex-finalcut")},
        {QStringLiteral("version"), version},
        {QStringLiteral("downloadURL"), QStringLiteral("https://orvex.example/indir")}};
    for (const QString& key : fields.keys()) manifest.insert(key, fields[key]);
    server.answer(kManifest, 200, QJsonDocument(manifest).toJson());
  }
  /// A pack of one shared file, in place of the one with the same identifier from the next
  /// `publishCatalog` on.
  void pack(const QString& id, const QString& name, const QString& version,
            const QByteArray& contents = "lut") {
    TestPack made(id, version, {{QStringLiteral("look.cube"), contents}});
    made.pack.schemaVersion = 1;
    made.pack.name = name;
    made.pack.sharedAssets[0].url = server.url("/files/" + id.toUtf8()).toString();
    packs_[id] = made.pack;
    contents_[id] = contents;
    server.answer("/files/" + id.toUtf8(), 200, contents);
  }
  void publishCatalog() {
    const UniversalPackCatalog catalog{1, QStringLiteral("r1"), {}, packs_.values()};
    server.answer(kCatalog, 200, catalog.encode());
  }
  /// Sends two fifths of the file of this pack, and the rest after `resume`.
  void hold(const QString& id) {
    *held_ = true;
    server.on("/files/" + id.toUtf8(), [held = held_, contents = contents_.value(id)](
                                           FaultServer::Peer& peer, const auto&) {
      const qsizetype first = contents.size() * 2 / 5;
      peer.send("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(contents.size()) +
                "\r\n\r\n" + contents.first(first));
      while (*held && peer.pause(std::chrono::milliseconds(5))) continue;
      peer.send(contents.sliced(first));
    });
  }
  void resume() { *held_ = false; }

  FaultServer server;

 private:
  const QTemporaryDir store_;
  QMap<QString, UniversalPack> packs_;
  QMap<QString, QByteArray> contents_;
  std::shared_ptr<std::atomic<bool>> held_ = std::make_shared<std::atomic<bool>>(true);
};

}  // namespace orvex
