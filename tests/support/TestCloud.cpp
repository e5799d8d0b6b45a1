#include "support/TestCloud.h"

#include <QCryptographicHash>
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
  const QByteArray path = filePath(id);
  const QJsonObject asset{
      {QStringLiteral("file"), QStringLiteral("look.cube")},
      {QStringLiteral("sha256"),
       QString::fromLatin1(QCryptographicHash::hash(contents, QCryptographicHash::Sha256).toHex())},
      {QStringLiteral("bytes"), contents.size()},
      {QStringLiteral("url"), server.url(path).toString()}};
  catalog_[id] = {{QStringLiteral("schemaVersion"), 1},
                  {QStringLiteral("id"), id},
                  {QStringLiteral("name"), name},
                  {QStringLiteral("version"), version},
                  {QStringLiteral("targets"), QJsonArray{QStringLiteral("final-cut")}},
                  {QStringLiteral("sharedAssets"), QJsonArray{asset}},
                  {QStringLiteral("variants"), QJsonObject()},
                  {QStringLiteral("rollback"), QJsonObject()}};
  contents_[id] = contents;
  server.answer(path, 200, contents);
}

void TestCloud::publishCatalog() {
  QJsonArray packs;
  for (const QJsonObject& pack : catalog_) packs.append(pack);
  const QJsonObject catalog{{QStringLiteral("schemaVersion"), 1},
                            {QStringLiteral("revision"), QStringLiteral("r1")},
                            {QStringLiteral("packs"), packs}};
  server.answer(kCatalog, 200, QJsonDocument(catalog).toJson());
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
