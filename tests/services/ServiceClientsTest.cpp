#include "base/Json.h"
#include "services/PackCatalogRequest.h"
#include "services/ReleaseCenterClient.h"
#include "services/RequestCenterClient.h"
#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"

#include <QDateTime>

namespace {

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
    return QString::fromLatin1(error.kDomain) + u" %1: "_s.arg(error.code()) + error.description();
  } catch (const JsonError&) {
    return u"json"_s;
  } catch (const TransportError&) {
    return u"transport"_s;
  }
}

constexpr int kGarbage = 0;
// However long the limit of each service is, it has one.
constexpr int kSilence = -1;

// What a client is to be made with that gets this answer.
HttpOptions answer(FaultServer& server, const QByteArray& path, int status,
                   const QByteArray& body) {
  if (status == kSilence) {
    server.say(path, {}, &FaultServer::Peer::stall);
    return server.options(300ms);
  }
  if (status == kGarbage)
    server.say(path, "what?\r\n\r\n", &FaultServer::Peer::close);
  else
    server.answer(path, status, body);
  return server.options();
}

TEST(ServiceClients, FetchReleasesAndCatalogs) {
  FaultServer server;
  const QByteArray manifest =
      R"({"productId":"vantrelo-orvex-finalcut","version":"1.2","downloadURL":"https://x/y"})";
  const QByteArray catalog = R"({"schemaVersion":1,"revision":"r","packs":[]})";
  const char16_t* const noRelease = u"release: Release manifest cevabı geçersiz.";
  const char16_t* const noPacks = u"pack: Universal Pack sunucu cevabı geçersiz.";
  // The status, and for each service what is sent with it and what comes of that.
  const std::tuple<int, QByteArray, const char16_t*, QByteArray, const char16_t*> rows[]{
      {200, manifest, u"1.2", catalog, u"r"},
      {299, manifest, u"1.2", catalog, u"r"},
      {300, manifest, u"release: Release Center HTTP 300", catalog,
       u"pack: Universal Pack HTTP 300"},
      {200, QByteArray(manifest).replace("finalcut", "Finalcut"),
       u"release: Manifest farklı bir Vantrelo ürünü için.", QByteArray(catalog).replace("1", "2"),
       u"pack: Universal Pack kataloğu geçersiz."},
      // What cannot be read is said before what it is for.
      {200, R"({"productId":"x","version":"1"})", u"json", R"({"schemaVersion":2})", u"json"},
      {kGarbage, {}, noRelease, {}, noPacks},
      {kSilence, {}, u"transport", {}, u"transport"},
  };
  for (const auto& [status, manifestSent, release, catalogSent, packs] : rows) {
    const HttpOptions http = answer(server, "/manifest.json", status, manifestSent);
    std::ignore = answer(server, "/packs/manifest.json", status, catalogSent);
    const ReleaseCenterClient releases(server.url("/manifest.json"), http);
    EXPECT_EQ(outcome([&] { return releases.fetchManifest().version; }), release);
    const QUrl url = server.url("/packs/manifest.json?ts=1&x=2");
    EXPECT_EQ(outcome([&] { return fetchPackCatalog(url, http, {}).revision; }), packs);
  }
  const qint64 now = QDateTime::currentSecsSinceEpoch();
  const QList<FaultServer::Request> requests = server.requests();
  EXPECT_EQ(requests[0].target, "/manifest.json");
  EXPECT_EQ(requests[0].headers.value("accept"), "application/json");
  ASSERT_TRUE(requests[1].target.startsWith("/packs/manifest.json?ts="));
  const qint64 stamp = requests[1].target.mid(24).toLongLong();
  EXPECT_TRUE(stamp <= now && stamp > now - 60) << requests[1].target.constData();
}

TEST(ServiceClients, SendRequests) {
  FaultServer server;
  const QString title = u"Başlık \"1\"\n\u0001"_s;
  const std::tuple<int, QByteArray, const char16_t*> rows[]{
      {200, R"({"ok":true,"requestId":"r","id":"i"})", u"r"},
      {201, R"({"ok":true,"id":"i","requestId":null})", u"i"},
      {200, R"({"ok":true})", u"Vantrelo Request"},
      {200, R"({"ok":false,"message":"Dolu."})", u"VantreloRequestCenter 200: Dolu."},
      {429, R"({"ok":true,"message":"Bekle."})", u"VantreloRequestCenter 429: Bekle."},
      {500, "<html>", u"VantreloRequestCenter 500: Talep gönderilemedi."},
      {200, R"({"ok":1,"message":"m"})", u"VantreloRequestCenter 200: Talep gönderilemedi."},
      {200, R"({"ok":true,"id":7})", u"VantreloRequestCenter 200: Talep gönderilemedi."},
      {kGarbage, {}, u"transport"},
      {kSilence, {}, u"transport"},
  };
  for (const auto& [status, body, told] : rows) {
    const RequestCenterClient client(server.url("/api"), answer(server, "/api", status, body));
    const FeatureRequest request{title,     u" d "_s, u"Color"_s, u"Final Cut Pro"_s,
                                 u"11.1"_s, {},       u"0.3"_s};
    EXPECT_EQ(outcome([&] { return client.send(request); }), told);
  }
  const FaultServer::Request request = server.requests()[0];
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.headers.value("content-type"), "application/json");
  EXPECT_EQ(QJsonDocument::fromJson(request.body), QJsonDocument::fromJson(R"(
      {"type": "feature", "title": "Başlık \"1\"\n\u0001", "description": " d ",
       "priority": "normal", "module": "Color", "source": "vantrelo-orvex-finalcut",
       "diagnostics": {"appVersion": "Final Cut Pro 11.1", "extensionVersion": "0.3",
                       "platform": "macOS", "renderer": "Workflow Extension", "compName": ""}})"));
}

}  // namespace
