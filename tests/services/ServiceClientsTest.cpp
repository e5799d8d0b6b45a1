#include "base/Json.h"
#include "services/PackCatalogRequest.h"
#include "services/ReleaseCenterClient.h"
#include "services/RequestCenterClient.h"
#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"

#include <QDateTime>
#include <QJsonDocument>

#include <gmock/gmock.h>

using namespace orvex;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kManifest =
    R"({"productId":"vantrelo-orvex-finalcut","version":"1.2","downloadURL":"https://x/y"})";
constexpr auto kCatalog = R"({"schemaVersion":1,"revision":"r","packs":[]})";

// The description of the failure, after the type of its error.
template <typename Work>
QString outcome(Work work) {
  try {
    return work();
  } catch (const ReleaseCenterError& error) {
    return u"release: "_s + error.description();
  } catch (const UniversalPackClientError& error) {
    return u"pack: "_s + error.description();
  } catch (const RequestCenterError& error) {
    return u"request %1: "_s.arg(error.code()) + error.description();
  } catch (const JsonError&) {
    return u"json"_s;
  } catch (const TransportError&) {
    return u"transport"_s;
  }
}

void garbage(FaultServer::Peer& peer, const FaultServer::Request&) {
  peer.send("what?\r\n\r\n");
  peer.close();
}
void silence(FaultServer::Peer& peer, const FaultServer::Request&) {
  peer.close();
}
FaultServer::Handler say(int status, const QByteArray& body) {
  return [=](FaultServer::Peer& peer, const FaultServer::Request&) { peer.reply(status, body); };
}

TEST(ServiceClients, FetchReleasesAndCatalogs) {
  FaultServer server;
  const auto release = [&](const HttpOptions& http) {
    return outcome([&] {
      return ReleaseCenterClient(server.url("/manifest.json"), http).fetchManifest().version;
    });
  };
  const auto packs = [&](const HttpOptions& http) {
    return outcome([&] {
      return fetchPackCatalog(server.url("/packs/manifest.json?ts=1&x=2"), http, {}).revision;
    });
  };
  const QByteArray manifest = kManifest;
  const QByteArray catalog = kCatalog;
  const struct {
    FaultServer::Handler manifest;
    FaultServer::Handler catalog;
    const char16_t* release;
    const char16_t* packs;
  } rows[]{
      {say(200, manifest), say(200, catalog), u"1.2", u"r"},
      {say(299, manifest), say(299, catalog), u"1.2", u"r"},
      {say(300, manifest), say(300, catalog), u"release: Release Center HTTP 300",
       u"pack: Universal Pack HTTP 300"},
      {say(304, {}), say(404, catalog), u"release: Release Center HTTP 304",
       u"pack: Universal Pack HTTP 404"},
      {say(200, QByteArray(manifest).replace("finalcut", "Finalcut")),
       say(200, QByteArray(catalog).replace(":1", ":2")),
       u"release: Manifest farklı bir Vantrelo ürünü için.",
       u"pack: Universal Pack kataloğu geçersiz."},
      {say(200, QByteArray(manifest).replace("finalcut", "finalcut ")), say(200, "<html>"),
       u"release: Manifest farklı bir Vantrelo ürünü için.", u"json"},
      // What cannot be read is said before what it is for.
      {say(200, R"({"productId":"x","version":"1"})"), say(200, R"({"schemaVersion":2})"), u"json",
       u"json"},
      {garbage, garbage, u"release: Release manifest cevabı geçersiz.",
       u"pack: Universal Pack sunucu cevabı geçersiz."},
      {silence, silence, u"transport", u"transport"},
  };
  for (const auto& row : rows) {
    server.on("/manifest.json", row.manifest);
    server.on("/packs/manifest.json", row.catalog);
    EXPECT_EQ(release(server.options()), QString::fromUtf16(row.release));
    EXPECT_EQ(packs(server.options()), QString::fromUtf16(row.packs));
  }
  const qint64 now = QDateTime::currentSecsSinceEpoch();
  const QList<FaultServer::Request> requests = server.requests();
  for (const FaultServer::Request& request : requests.first(2)) {
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.headers.value("accept"), "application/json");
  }
  EXPECT_EQ(requests[0].target, "/manifest.json");
  ASSERT_TRUE(requests[1].target.startsWith("/packs/manifest.json?ts="));
  const qint64 stamp = requests[1].target.mid(24).toLongLong();
  EXPECT_TRUE(stamp <= now && stamp > now - 60) << requests[1].target.constData();
}

TEST(ServiceClients, SendRequests) {
  FaultServer server;
  const QString title = u"Başlık \"1\"\n\u0001"_s;
  const auto send = [&] {
    return outcome([&] {
      return RequestCenterClient(server.url("/api"), server.options())
          .send({title, u" d "_s, u"Color"_s, u"Final Cut Pro"_s, u"11.1"_s, {}, u"0.3"_s});
    });
  };
  const struct {
    FaultServer::Handler handler;
    const char16_t* outcome;
  } rows[]{
      {say(200, R"({"ok":true,"requestId":"r","id":"i"})"), u"r"},
      {say(201, R"({"ok":true,"id":"i","requestId":null})"), u"i"},
      {say(200, R"({"ok":true})"), u"Vantrelo Request"},
      {say(200, R"({"ok":false,"message":"Dolu."})"), u"request 200: Dolu."},
      {say(429, R"({"ok":true,"message":"Bekle."})"), u"request 429: Bekle."},
      {say(500, "<html>"), u"request 500: Talep gönderilemedi."},
      {say(200, R"({"id":"i"})"), u"request 200: Talep gönderilemedi."},
      {say(200, R"({"ok":1,"message":"m"})"), u"request 200: Talep gönderilemedi."},
      {say(200, R"({"ok":true,"id":7})"), u"request 200: Talep gönderilemedi."},
      {garbage, u"transport"},
      {silence, u"transport"},
  };
  for (const auto& row : rows) {
    server.on("/api", row.handler);
    EXPECT_EQ(send(), QString::fromUtf16(row.outcome));
  }
  const FaultServer::Request request = server.requests()[0];
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.headers.value("content-type"), "application/json");
  EXPECT_EQ(QJsonDocument::fromJson(request.body).object(),
            (QJsonObject{{u"type"_s, u"feature"_s},
                         {u"title"_s, title},
                         {u"description"_s, u" d "_s},
                         {u"priority"_s, u"normal"_s},
                         {u"module"_s, u"Color"_s},
                         {u"source"_s, u"vantrelo-orvex-finalcut"_s},
                         {u"diagnostics"_s, QJsonObject{{u"appVersion"_s, u"Final Cut Pro 11.1"_s},
                                                        {u"extensionVersion"_s, u"0.3"_s},
                                                        {u"platform"_s, u"macOS"_s},
                                                        {u"renderer"_s, u"Workflow Extension"_s},
                                                        {u"compName"_s, QString()}}}}));
}

// However long the limit of each is, it has one.
TEST(ServiceClients, EndWhenTheServerIsSilent) {
  FaultServer server;
  server.on("/", [](FaultServer::Peer& peer, const auto&) { peer.stall(); });
  const QUrl url = server.url("/");
  const HttpOptions http = server.options(300ms);
  EXPECT_THROW(std::ignore = ReleaseCenterClient(url, http).fetchManifest(), TransportError);
  EXPECT_THROW(std::ignore = fetchPackCatalog(url, http, {}), TransportError);
  EXPECT_THROW(std::ignore = RequestCenterClient(url, http).send({}), TransportError);
}

}  // namespace
