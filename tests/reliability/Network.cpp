#include "Checks.h"
#include "Scenario.h"
#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"
#include "support/TemporaryTree.h"

#include <QFile>

namespace orvex {
namespace {

using namespace std::chrono_literals;
using Peer = FaultServer::Peer;

constexpr auto kPatience = 250ms;
const QByteArray kOk = "HTTP/1.1 200 OK\r\n";

// What a server does instead of answering.
struct Fault {
  std::string name;
  std::function<void(Peer&)> act;
};

// `end` after each so many bytes of an answer: `step` in its head, 64 times as many in its body.
std::vector<Fault> broken(const QByteArray& body, bool hasLength, int step,
                          const std::function<void(Peer&)>& end) {
  const QByteArray length = "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
  const QByteArray head = kOk + (hasLength ? length : "Connection: close\r\n") + "\r\n";
  std::vector<Fault> faults;
  for (qsizetype sent = hasLength ? 0 : head.size(); sent < head.size() + body.size();
       sent += sent < head.size() ? step : 64 * step)
    faults.push_back({"after " + std::to_string(sent), [=](Peer& peer) {
                        peer.send((head + body).first(sent));
                        end(peer);
                      }});
  return faults;
}

Fault answer(int status, const QByteArray& body, const QList<QByteArray>& headers = {}) {
  return {std::to_string(status) + ' ' + headers.value(0).toStdString(),
          [=](Peer& peer) { peer.reply(status, body, headers); }};
}

// Then ends the connection, or says `again` until the client goes.
Fault speech(const QByteArray& bytes, const QByteArray& again = {},
             std::chrono::milliseconds rest = {}) {
  return {(bytes + again).left(60).toPercentEncoding(" :").toStdString(), [=](Peer& peer) {
            peer.send(bytes);
            if (!again.isEmpty()) peer.repeat(again, rest);
            peer.close();
          }};
}

std::vector<Fault> wrongAnswers(const QByteArray& body, const QByteArray& distrusted) {
  const QByteArray pieces = kOk + "Transfer-Encoding: chunked\r\n\r\n";
  std::vector<Fault> faults{
      answer(200, "<html>"),
      answer(200, body.chopped(1)),
      answer(200, QByteArray(body.size(), 'z')),
      answer(200, QByteArray(5000, '[')),
      answer(206, body.first(body.size() / 2)),
      speech(kOk + "Content-Length: 99999\r\n\r\n" + body),
      speech(kOk + "Content-Length: many\r\n\r\n"),
      speech(kOk + "Content-Length: 1\r\nContent-Length: 2\r\n\r\nx"),
      speech(kOk, "X-More: " + QByteArray(4000, 'x') + "\r\n"),
      speech(kOk + "X-More: ", QByteArray(4000, 'x')),
      speech("", "HTTP/1.1 100 Continue\r\n\r\n"),
      speech(kOk + "\r\n" + body, QByteArray(16384, ' ') + 'x'),
      speech(pieces, "1\r\nx\r\n"),
      speech(pieces + "zz\r\n" + body),
      speech(pieces + "ffffffffffffffff\r\n" + body),
      speech(kOk + "Content-Length: 9999\r\n\r\n", "x", 20ms),
      speech(kOk, "X: y\r\n", 20ms),
      speech(kOk + "Content-Encoding: gzip\r\nConnection: close\r\n\r\n\x1f\x8b" + body),
      speech("SSH-2.0-OpenSSH\r\n\r\n"),
      speech("HTTP/9.9 200 OK\r\n\r\n" + body),
      speech(QByteArray(500, '\0'))};
  for (const int status : {204, 300, 304, 400, 401, 403, 404, 416, 429, 500, 502, 503})
    faults.push_back(answer(status, status == 204 || status == 304 ? QByteArray() : body));
  for (const QByteArray& target :
       {QByteArray("http://localhost/"), QByteArray("file:///etc/passwd"), QByteArray("data:,x"),
        QByteArray("ftp://localhost/"), QByteArray("/loop"), QByteArray("https://localhost:1/"),
        QByteArray("https://"), distrusted})
    for (const int status : {301, 302, 303, 307, 308})
      faults.push_back(answer(status, "", {"Location: " + target}));
  return faults;
}

// A server that offers version "2" of a pack, and a store with version "1".
class Update {
 public:
  // The address of `replaced` leads to `other`.
  explicit Update(const QByteArray& replaced = {}, const QUrl& other = {}) {
    change(root_, "1");
    packOf("other").installIn(PackStore(root_));
    const auto url = [&](const QByteArray& path) {
      return path == replaced ? other : server_.url(path);
    };
    TestPack offered = packOf("2");
    for (UniversalPackAsset& asset : offered.pack.sharedAssets) {
      const QByteArray path = '/' + asset.file.toUtf8();
      asset.url = url(path).toString();
      bodies_[path] = offered.contents[asset.file];
    }
    bodies_["/catalog"] = UniversalPackCatalog{1, {}, {}, {offered.pack}}.encode();
    catalog_ = url("/catalog");
    for (auto body = bodies_.begin(); body != bodies_.end(); ++body)
      server_.answer(body.key(), 200, *body);
    server_.redirect("/loop", "/loop");
  }

  [[nodiscard]] QByteArray body(const QByteArray& path) const { return bodies_[path]; }

  // What is wrong after an update while the server does this at `path`.
  std::string attempt(const QByteArray& path, const Fault& fault) {
    server_.on(path, [act = fault.act](Peer& peer, const auto&) { act(peer); });
    std::string wrong = attempt(kPatience, "1 other");
    server_.answer(path, 200, bodies_[path]);
    return wrong;
  }
  // What is wrong after an update that is to lead to `state`, or to be refused with that state.
  std::string attempt(std::chrono::milliseconds patience, const std::string& state) {
    const UniversalPackClient client(catalog_, QFile::decodeName(root_), server_.options(patience));
    const auto begin = std::chrono::steady_clock::now();
    bool isDone = false;
    try {
      client.install(client.finalCutPacks().value(0));
      isDone = true;
    } catch (const DescribedError& error) {
      if (error.description().isEmpty()) return "says nothing";
    }
    const std::string found = stateOf(root_);
    if (isDone != state.starts_with('2')) return isDone ? "a false success" : "is refused";
    if (found != state) return "shows '" + found + "'";
    if (hasLeftovers(root_)) return "leftovers stay";
    return std::chrono::steady_clock::now() - begin > 10s ? "takes too long" : "";
  }

 private:
  const TemporaryTree tree_;
  const QByteArray root_ = tree_.path("packs");
  FaultServer server_;
  QMap<QByteArray, QByteArray> bodies_;
  QUrl catalog_;
};

const QByteArray kPaths[]{"/catalog", "/a.cube", "/d.cube"};

}  // namespace

bool checkNetwork(std::size_t most) {
  bool isWell = true;
  const auto check = [&](const char* name, const auto& faultsOf) {
    Tally tally(std::string("network ") + name);
    for (const QByteArray& path : kPaths) {
      Update update;
      const std::vector<Fault> faults = faultsOf(update.body(path));
      for (const std::size_t pick : sample(faults.size(), most))
        tally.add(update.attempt(path, faults[pick]),
                  [&] { return path.toStdString() + ": " + faults[pick].name; });
      tally.add(update.attempt(30s, "2 other"), [&] { return path.toStdString() + " again"; });
    }
    isWell &= tally.print("at each of 3 requests");
  };
  const auto breaking = [](bool hasLength, int step, const std::function<void(Peer&)>& end) {
    return [=](const QByteArray& body) { return broken(body, hasLength, step, end); };
  };
  check("connection closed", breaking(true, 1, [](Peer& peer) { peer.close(); }));
  check("connection closed, length not told", breaking(false, 1, [](Peer& peer) { peer.close(); }));
  check("connection reset", breaking(true, 1, [](Peer& peer) { peer.reset(); }));
  check("silence", breaking(true, 8, [](Peer& peer) { peer.stall(); }));
  const FaultServer distrusted("wrong-host");
  check("wrong answer", [&](const QByteArray& body) {
    return wrongAnswers(body, distrusted.url("/").toEncoded());
  });

  Tally tally("network certificate");
  for (const char* const kind : {"self-signed", "expired", "not-yet-valid", "wrong-host"})
    for (const std::size_t pick : sample(std::size(kPaths), most)) {
      const QByteArray& path = kPaths[pick];
      FaultServer impostor(kind);
      tally.add(Update(path, impostor.url(path)).attempt(30s, "1 other"),
                [&] { return path.toStdString() + ": " + kind; });
      if (!impostor.requests().isEmpty()) isWell = false;
    }
  return tally.print("before any request") && isWell;
}

}  // namespace orvex
