#include "support/TestCloud.h"

#include "services/UniversalPackCatalog.h"
#include "support/TestPack.h"

#include <QJsonDocument>

namespace orvex {

TestCloud::TestCloud() {
  for (const char* path : {kManifest, kCatalog, kRequests})
    server.on(path, [](FaultServer::Peer& peer, const auto&) { peer.stall(); });
}

OrvexServices TestCloud::services() const {
  return {ReleaseCenterClient(server.url(kManifest), server.options()),
          UniversalPackClient(server.url(kCatalog), store_.path(), server.options()),
          RequestCenterClient(server.url(kRequests), server.options())};
}

void TestCloud::release(const QString& version, const QJsonObject& fields) {
  QJsonObject manifest{
      {QStringLiteral("productId"), QStringLiteral("vantrelo-orvex-finalcut")},
      {QStringLiteral("version"), version},
      {QStringLiteral("downloadURL"), QStringLiteral("https://orvex.example/indir")}};
  for (auto field = fields.begin(); field != fields.end(); ++field)
    manifest.insert(field.key(), field.value());
  server.answer(kManifest, 200, QJsonDocument(manifest).toJson());
}

QByteArray TestCloud::filePath(const QString& id) {
  return "/files/" + id.toUtf8();
}

void TestCloud::pack(const QString& id, const QString& name, const QString& version,
                     const QByteArray& contents) {
  TestPack made(id, version, {{QStringLiteral("look.cube"), contents}});
  made.pack.schemaVersion = 1;
  made.pack.name = name;
  made.pack.sharedAssets[0].url = server.url(filePath(id)).toString();
  packs_[id] = made.pack;
  contents_[id] = contents;
  server.answer(filePath(id), 200, contents);
}

void TestCloud::publishCatalog() {
  const UniversalPackCatalog catalog{1, QStringLiteral("r1"), {}, packs_.values()};
  server.answer(kCatalog, 200, catalog.encode());
}

void TestCloud::hold(const QString& id) {
  *held_ = true;
  server.on(filePath(id), [held = held_, contents = contents_.value(id)](FaultServer::Peer& peer,
                                                                         const auto&) {
    const qsizetype first = contents.size() * 2 / 5;
    peer.send("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(contents.size()) +
              "\r\n\r\n" + contents.first(first));
    while (*held && peer.pause(std::chrono::milliseconds(5))) continue;
    peer.send(contents.sliced(first));
  });
}

void TestCloud::resume() {
  *held_ = false;
}

}  // namespace orvex
