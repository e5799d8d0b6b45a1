#include "support/FaultServer.h"
#include "support/TemporaryTree.h"

#include <future>

using namespace orvex;
using namespace std::chrono_literals;

namespace {

using Certificate = TestCertificate::Kind;
using Kind = TransportError::Kind;
using Peer = FaultServer::Peer;

constexpr qint64 kLimit = 1000;

HttpResponse fetch(HttpClient& client, const QUrl& url, const std::stop_token& stop = {}) {
  return client.send(
      {.url = url, .headers = {}, .body = {}, .timeout = 10s, .maximumBytes = kLimit}, stop);
}

// The kind of failure, or nothing; every failure says whom it is about and ends in time.
template <typename Work>
std::optional<Kind> failureOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  std::optional<Kind> kind;
  try {
    std::ignore = work();
  } catch (const TransportError& error) {
    EXPECT_TRUE(error.description().contains(u"localhost")) << error.description();
    kind = error.kind();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
  return kind;
}

TEST(HttpClient, Exchanges) {
  FaultServer server;
  server.answer("/text", 200, "text");
  server.answer("/none", 204, {});
  server.answer("/refused", 500, "why");
  server.answer("/zipped", 200, "\x1f\x8b not unpacked", {"Content-Encoding: gzip"});
  server.redirect("/moved", "/text");
  server.on("/chunked", [](Peer& peer, const auto&) {
    peer.send(
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n1\r\nc\r\n0\r\n\r\n");
  });
  const struct {
    QByteArray path;
    int status;
    QByteArray body;
  } rows[]{
      {"/text", 200, "text"},         {"/none", 204, {}},
      {"/refused", 500, "why"},       {"/moved", 200, "text"},
      {"/chunked", 200, "abc"},       {"/zipped", 200, "\x1f\x8b not unpacked"},
      {"/else", 404, "nothing here"},
  };
  HttpClient client(server.options());
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path.constData());
    const HttpResponse response = fetch(client, server.url(row.path));
    EXPECT_EQ(response.status, row.status);
    EXPECT_EQ(response.body, row.body);
  }
  EXPECT_EQ(server.connections(), 1);
  EXPECT_FALSE(server.requests()[0].headers.contains("accept-encoding"));
  for (const auto& row : rows) {
    QByteArray body;
    EXPECT_EQ(client.download(server.url(row.path), [&](auto bytes) { body.append(bytes); }, {}),
              row.status);
    EXPECT_EQ(body, isSuccess(row.status) ? row.body : QByteArray()) << row.path.constData();
  }
}

TEST(HttpClient, RefusesCertificatesThatDoNotHold) {
  const struct {
    Certificate certificate;
    const char16_t* word;
  } rows[]{{Certificate::SelfSigned, u"güvenilmiyor"},
           {Certificate::Expired, u"dolmuş"},
           {Certificate::NotYetValid, u"henüz geçerli değil"},
           {Certificate::WrongHost, u"ait değil"}};
  for (const auto& row : rows) {
    FaultServer server(row.certificate);
    server.answer("/", 200, "secret");
    HttpClient client(server.options());
    try {
      std::ignore = fetch(client, server.url("/"));
      ADD_FAILURE() << "accepted";
    } catch (const TransportError& error) {
      EXPECT_EQ(error.kind(), Kind::Certificate);
      EXPECT_TRUE(error.description().contains(row.word)) << error.description();
    }
    EXPECT_TRUE(server.requests().isEmpty());
  }
  FaultServer server;
  server.answer("/", 200, "secret");
  TemporaryTree tree;
  tree.file("empty.pem");
  for (const QString& file : {QString(), tree.text("empty.pem"), tree.text("absent.pem")}) {
    HttpOptions options = server.options();
    options.caFile = file;
    HttpClient client(options);
    EXPECT_THROW(std::ignore = client.download(server.url("/"), [](auto) {}, {}), TransportError);
  }
  EXPECT_TRUE(server.requests().isEmpty());
}

TEST(HttpClient, EndsWhatAServerDoesWrong) {
  FaultServer server;
  const QByteArray ok = "HTTP/1.1 200 OK\r\n";
  const auto plain = [](auto bytes) {
    return [bytes = QByteArray(bytes)](Peer& peer, const auto&) {
      peer.send(bytes);
      peer.close();
    };
  };
  const struct {
    const char* name;
    FaultServer::Handler handler;
    std::optional<Kind> sent;
    std::optional<Kind> downloaded;
  } rows[]{
      {"stall", [](Peer& peer, const auto&) { peer.stall(); }, Kind::TimedOut, Kind::TimedOut},
      {"stalling body",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "Content-Length: 9\r\n\r\nabc");
         peer.stall();
       },
       Kind::TimedOut, Kind::TimedOut},
      {"drip",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "\r\n");
         peer.repeat("a", 50ms);
       },
       Kind::TimedOut, Kind::TimedOut},
      {"dripping headers",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "X: ");
         peer.repeat("a", 50ms);
       },
       Kind::TimedOut, Kind::TimedOut},
      {"endless headers",
       [&](Peer& peer, const auto&) {
         peer.send(ok);
         peer.repeat("X: " + QByteArray(1000, 'x') + "\r\n");
       },
       Kind::TooLarge, Kind::TooLarge},
      {"endless header",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "X: ");
         peer.repeat(QByteArray(10'000, 'x'));
       },
       Kind::TooLarge, Kind::TooLarge},
      {"endless body",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "\r\n");
         peer.repeat(QByteArray(10'000, 'x'));
       },
       // That of a download is for its sink to end.
       Kind::TooLarge, std::nullopt},
      {"one byte more",
       [](Peer& peer, const auto&) { peer.reply(200, QByteArray(kLimit + 1, 'x')); },
       Kind::TooLarge, std::nullopt},
      {"cut", plain(ok + "Content-Length: 9\r\n\r\nabc"), Kind::Broken, Kind::Broken},
      {"cut chunk", plain(ok + "Transfer-Encoding: chunked\r\n\r\n9\r\nabc"), Kind::Broken,
       Kind::Broken},
      {"silence", plain(""), Kind::Broken, Kind::Broken},
      {"reset",
       [&](Peer& peer, const auto&) {
         peer.send(ok + "Content-Length: 9\r\n\r\nabc");
         peer.reset();
       },
       Kind::Broken, Kind::Broken},
      {"garbage", plain("what?\r\n\r\nwhat?"), Kind::NotHttp, Kind::NotHttp},
      {"garbage in the status", plain("HTTP/1.1 abc OK\r\n\r\n"), Kind::NotHttp, Kind::NotHttp},
      {"garbage after a redirect",
       [](Peer& peer, const auto&) { peer.reply(302, {}, {"Location: /garbage"}); }, Kind::NotHttp,
       Kind::NotHttp},
  };
  struct Clients {
    explicit Clients(const HttpOptions& options) : sender(options), loader(options) {}
    HttpClient sender;
    HttpClient loader;
  };
  Clients patient(server.options());
  Clients impatient(server.options(500ms));
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const QByteArray path = '/' + QByteArray(row.name).replace(' ', '-');
    server.on(path, row.handler);
    auto& [sender, loader] = row.sent == Kind::TimedOut ? impatient : patient;
    auto sent = std::async(std::launch::async, [&] {
      return failureOf([&] { return fetch(sender, server.url(path)); });
    });
    qint64 count = 0;
    struct Enough {};
    try {
      EXPECT_EQ(failureOf([&] {
                  return loader.download(server.url(path),
                                         [&](QByteArrayView bytes) {
                                           if ((count += bytes.size()) > 1'000'000) throw Enough();
                                         },
                                         {});
                }),
                row.downloaded);
    } catch (const Enough&) {
      EXPECT_STREQ(row.name, "endless body");
    }
    EXPECT_EQ(sent.get(), row.sent);
  }
}

TEST(HttpClient, FollowsAFewRedirectsToHttpsOnly) {
  FaultServer server;
  const int port = server.url("/").port();
  server.redirect("/loop", "/loop");
  server.redirect("/http", "http://localhost:" + QByteArray::number(port) + "/5");
  server.redirect("/file", "file:///etc/passwd");
  server.redirect("/data", "data:text/plain,abc");
  server.redirect("/bad", "https://:::/");
  for (int i = 0; i < 6; ++i)
    server.redirect('/' + QByteArray::number(i), '/' + QByteArray::number(i + 1));
  server.answer("/6", 200, "there");
  HttpClient client(server.options());
  for (const char* path : {"/loop", "/http", "/file", "/data", "/bad", "/0"}) {
    EXPECT_EQ(failureOf([&] { return fetch(client, server.url(path)); }), Kind::Refused) << path;
    EXPECT_EQ(failureOf([&] { return client.download(server.url(path), [](auto) {}, {}); }),
              Kind::Refused)
        << path;
  }
  EXPECT_EQ(fetch(client, server.url("/1")).body, "there");
  for (const QString& url :
       {QStringLiteral("http://localhost/"), QStringLiteral("file:///etc/passwd"),
        QStringLiteral("https://"), QString()})
    EXPECT_THROW(std::ignore = client.download(QUrl(url), [](auto) {}, {}), TransportError);
}

TEST(HttpClient, WorksAgainAfterAServerWasGone) {
  FaultServer server;
  server.answer("/", 200, "text");
  HttpClient client(server.options());
  const auto get = [&] { return client.download(server.url("/"), [](auto) {}, {}); };
  EXPECT_EQ(get(), 200);
  server.die();
  EXPECT_EQ(failureOf(get), Kind::Unreachable);
  server.revive();
  EXPECT_EQ(get(), 200);
}

// At once, not at the next look at the clock: while a server is silent and while it sends.
TEST(HttpClient, Stops) {
  FaultServer server;
  server.on("/silent", [](Peer& peer, const auto&) { peer.stall(); });
  server.on("/endless", [](Peer& peer, const auto&) {
    peer.send("HTTP/1.1 200 OK\r\n\r\n");
    peer.repeat(QByteArray(10'000, 'x'));
  });
  for (const char* path : {"/silent", "/endless"}) {
    std::stop_source stop;
    const std::jthread later([&stop] {
      std::this_thread::sleep_for(100ms);
      stop.request_stop();
    });
    HttpClient client(server.options());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(std::ignore = client.download(
                     server.url(path), [](auto) {}, stop.get_token()),
                 Stopped);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
    EXPECT_THROW(std::ignore = fetch(client, server.url(path), stop.get_token()), Stopped);
  }
}

}  // namespace
