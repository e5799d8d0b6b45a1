#include "support/FaultServer.h"

#include <future>

namespace {

using Kind = TransportError::Kind;
using Peer = FaultServer::Peer;

constexpr qint64 kLimit = 1000;

HttpResponse fetch(HttpClient& client, const QUrl& url, const std::stop_token& stop = {}) {
  return client.send(
      {.url = url, .headers = {}, .body = {}, .timeout = 10s, .maximumBytes = kLimit}, stop);
}

int load(HttpClient& client, const QUrl& url, const std::stop_token& stop = {}) {
  return client.download(
      url, [](auto) {}, stop);
}

// The kind of failure, or nothing; every failure says whom it is about, or `word`, and ends in
// time.
template <typename Work>
std::optional<Kind> failureOf(Work work, QStringView word = u"localhost") {
  const auto start = std::chrono::steady_clock::now();
  std::optional<Kind> kind;
  try {
    std::ignore = work();
  } catch (const TransportError& error) {
    EXPECT_TRUE(error.description().contains(word)) << error.description();
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
  server.say("/chunked",
             "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nab\r\n1\r\nc\r\n0\r\n\r\n");
  const std::tuple<QByteArray, int, QByteArray> rows[]{
      {"/text", 200, "text"},
      {"/none", 204, {}},
      {"/moved", 200, "text"},
      {"/chunked", 200, "abc"},
      {"/zipped", 200, "\x1f\x8b not unpacked"},
      // Of a download that is refused the body is not waited for: the connection ends.
      {"/refused", 500, "why"},
      {"/else", 404, "nothing here"},
  };
  HttpClient client(server.options());
  for (const auto& [path, status, body] : rows) {
    SCOPED_TRACE(path.constData());
    const HttpResponse response = fetch(client, server.url(path));
    EXPECT_EQ(response.status, status);
    EXPECT_EQ(response.body, body);
    EXPECT_TRUE(server.connections() == 1 || !isSuccess(status));
    QByteArray loaded;
    EXPECT_EQ(client.download(server.url(path), [&](auto bytes) { loaded.append(bytes); }, {}),
              status);
    EXPECT_EQ(loaded, isSuccess(status) ? body : QByteArray());
  }
}

TEST(HttpClient, RefusesCertificatesThatDoNotHold) {
  const std::pair<const char*, const char16_t*> rows[]{{"self-signed", u"güvenilmiyor"},
                                                       {"expired", u"dolmuş"},
                                                       {"not-yet-valid", u"henüz geçerli"},
                                                       {"wrong-host", u"ait değil"}};
  for (const auto& [certificate, word] : rows) {
    FaultServer server(certificate);
    HttpClient client(server.options());
    EXPECT_EQ(failureOf([&] { return fetch(client, server.url("/")); }, word), Kind::Certificate);
    EXPECT_TRUE(server.requests().isEmpty());
  }
  FaultServer server;
  TemporaryTree tree;
  tree.file("empty.pem");
  for (const QString& file : {QString(), tree.text("empty.pem"), tree.text("absent.pem")}) {
    HttpOptions options = server.options();
    options.caFile = file;
    HttpClient client(options);
    EXPECT_THROW(load(client, server.url("/")), TransportError);
  }
  EXPECT_TRUE(server.requests().isEmpty());
}

TEST(HttpClient, EndsWhatAServerDoesWrong) {
  FaultServer server;
  const QByteArray ok = "HTTP/1.1 200 OK\r\n";
  const QByteArray body = ok + "Content-Length: 9\r\n\r\nabc";
  const QByteArray chunk = ok + "Transfer-Encoding: chunked\r\n\r\n9\r\nabc";
  const QByteArray vast = ok + "Transfer-Encoding: chunked\r\n\r\nffffffffffffffff\r\nabc";
  const QByteArray lots(10'000, 'x');
  // What it says, then does, and what that is called; in the end what it says for ever, a single
  // letter slowly.
  const std::tuple<QByteArray, FaultServer::Then, Kind, QByteArray> rows[]{
      {"", &Peer::stall, Kind::TimedOut, {}},
      {body, &Peer::stall, Kind::TimedOut, {}},
      {ok + "\r\n", &Peer::close, Kind::TimedOut, "a"},
      {ok + "X: ", &Peer::close, Kind::TimedOut, "a"},
      {ok, &Peer::close, Kind::TooLarge, "X: " + QByteArray(1000, 'x') + "\r\n"},
      {ok + "X: ", &Peer::close, Kind::TooLarge, lots},
      {body, &Peer::close, Kind::Broken, {}},
      {chunk, &Peer::close, Kind::Broken, {}},
      {"", &Peer::close, Kind::Broken, {}},
      {vast, &Peer::close, Kind::Broken, {}},
      {ok + "Content-Length: 1\r\nContent-Length: 2\r\n\r\nx", &Peer::close, Kind::Broken, {}},
      {"", &Peer::close, Kind::TooLarge, QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(99)},
      {body, &Peer::reset, Kind::Broken, {}},
      {"what?\r\n\r\nwhat?", &Peer::close, Kind::NotHttp, {}},
      {"HTTP/1.1 abc OK\r\n\r\n", &Peer::close, Kind::NotHttp, {}},
  };
  HttpClient patient(server.options());
  HttpClient impatient(server.options(300ms));
  for (const auto& [said, then, kind, repeated] : rows) {
    SCOPED_TRACE((said + repeated).left(60).constData());
    server.on("/wrong", [=](Peer& peer, const auto&) {
      peer.send(said);
      if (!repeated.isEmpty()) peer.repeat(repeated, repeated.size() > 1 ? 0ms : 50ms);
      (peer.*then)();
    });
    server.redirect("/moved", "/wrong");
    HttpClient& client = kind == Kind::TimedOut ? impatient : patient;
    EXPECT_EQ(failureOf([&] { return fetch(client, server.url("/moved")); }), kind);
    EXPECT_EQ(failureOf([&] { return load(client, server.url("/wrong")); }), kind);
  }
  // Of a download the sink decides.
  server.answer("/more", 200, QByteArray(kLimit + 1, 'x'));
  EXPECT_EQ(failureOf([&] { return fetch(patient, server.url("/more")); }), Kind::TooLarge);
  EXPECT_EQ(load(patient, server.url("/more")), 200);
  // And of a refusal its status.
  server.answer("/more", 500, QByteArray(kLimit + 1, 'x'));
  EXPECT_EQ(fetch(patient, server.url("/more")).status, 500);
}

TEST(HttpClient, FollowsAFewRedirectsToHttpsOnly) {
  FaultServer server;
  const QByteArray port = QByteArray::number(server.url("/").port());
  const std::pair<const char*, QByteArray> targets[]{{"/loop", "/loop"},
                                                     {"/http", "http://localhost:" + port + "/5"},
                                                     {"/file", "file:///etc/passwd"},
                                                     {"/data", "data:text/plain,abc"},
                                                     {"/bad", "https://:::/"},
                                                     {"/0", "/1"}};
  for (int i = 1; i < 6; ++i)
    server.redirect('/' + QByteArray::number(i), '/' + QByteArray::number(i + 1));
  server.answer("/6", 200, "there");
  HttpClient client(server.options());
  for (const auto& [path, target] : targets) {
    server.redirect(path, target);
    EXPECT_EQ(failureOf([&] { return fetch(client, server.url(path)); }), Kind::Refused) << path;
    EXPECT_EQ(failureOf([&] { return load(client, server.url(path)); }), Kind::Refused) << path;
  }
  EXPECT_EQ(fetch(client, server.url("/1")).body, "there");
  const FaultServer impostor("wrong-host");
  server.redirect("/1", impostor.url("/").toEncoded());
  EXPECT_EQ(failureOf([&] { return load(client, server.url("/1")); }), Kind::Certificate);
  for (const char* url : {"http://localhost/", "file:///etc/passwd", "https://", ""})
    EXPECT_THROW(load(client, QUrl(QString::fromLatin1(url))), TransportError) << url;
}

TEST(HttpClient, WorksAgainAfterAServerWasGone) {
  FaultServer server;
  server.answer("/", 200, "text");
  HttpClient client(server.options());
  EXPECT_EQ(load(client, server.url("/")), 200);
  server.die();
  EXPECT_EQ(failureOf([&] { return load(client, server.url("/")); }), Kind::Unreachable);
  server.revive();
  EXPECT_EQ(load(client, server.url("/")), 200);
}

// At once, not at the next look at the clock: while a server is silent and while it sends.
TEST(HttpClient, Stops) {
  FaultServer server;
  server.say("/silent", "", &Peer::stall);
  server.on("/endless", [](Peer& peer, const auto&) {
    peer.send("HTTP/1.1 200 OK\r\n\r\n");
    peer.repeat(QByteArray(10'000, 'x'));
  });
  for (const char* path : {"/silent", "/endless"}) {
    std::stop_source stop;
    const auto later = std::async(std::launch::async, [&stop] {
      std::this_thread::sleep_for(100ms);
      stop.request_stop();
    });
    HttpClient client(server.options());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(load(client, server.url(path), stop.get_token()), Stopped);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
    EXPECT_THROW(std::ignore = fetch(client, server.url(path), stop.get_token()), Stopped);
  }
}

}  // namespace
