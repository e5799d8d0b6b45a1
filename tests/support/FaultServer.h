#pragma once

#include "services/HttpClient.h"

#include <QMap>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <openssl/ssl.h>
#include <optional>
#include <thread>
#include <vector>

namespace orvex {

/// A real HTTPS server on a port of this machine's own, in the test's process, that does what a
/// test says: answers, or breaks off, lies and stalls. Every connection has a thread.
///
///   FaultServer server;
///   server.answer("/a", 200, "text");
///   server.say("/b", "HTTP/1.1 200", &FaultServer::Peer::reset);
///   HttpClient(server.options()).send({.url = server.url("/a"), …}, {});
class FaultServer {
 public:
  struct Request {
    QByteArray method;
    /// As sent, with the query.
    QByteArray target;
    /// Names in lower case.
    QMap<QByteArray, QByteArray> headers{};
    QByteArray body{};
  };

  /// The other side of one connection, for a handler. What is sent is sent as it is.
  class Peer {
   public:
    Peer(const FaultServer& server, SSL* connection) : server_(server), connection_(connection) {}

    /// The next request; nothing when the client or the server is gone.
    std::optional<Request> receive();
    /// False when the client or the server is gone.
    bool send(const QByteArray& bytes);
    /// A whole answer; `headers` are lines. The connection stays.
    bool reply(int status, const QByteArray& body, const QList<QByteArray>& headers = {});
    /// Waits. False when the client or the server is gone.
    bool pause(std::chrono::milliseconds time);
    /// Says nothing any more until the client goes away.
    void stall() {
      while (pause(std::chrono::milliseconds(20))) continue;
    }
    /// Says `bytes` again and again until the client goes away, or resting after each.
    void repeat(const QByteArray& bytes, std::chrono::milliseconds rest = {}) {
      while (send(bytes) && pause(rest)) continue;
    }
    /// Waits for the next request.
    void keep() {}
    /// Ends the connection after the handler.
    void close() { isOpen_ = false; }
    /// The same, with a reset instead of a proper end.
    void reset();

    [[nodiscard]] bool isOpen() const { return isOpen_; }

   private:
    const FaultServer& server_;
    SSL* connection_;
    bool isOpen_ = true;
  };
  using Handler = std::function<void(Peer&, const Request&)>;
  /// Of a peer: how a handler ends.
  using Then = void (Peer::*)();

  /// `certificate` is one of make-certificates.sh: "valid", or one that a client must refuse.
  explicit FaultServer(const char* certificate = "valid");
  ~FaultServer() { die(); }
  FaultServer(const FaultServer&) = delete;
  FaultServer& operator=(const FaultServer&) = delete;

  /// Any time; what has no handler is answered with 404.
  void on(const QByteArray& path, const Handler& handler);
  void answer(const QByteArray& path, int status, const QByteArray& body,
              const QList<QByteArray>& headers = {});
  /// Sends `bytes` as they are.
  void say(const QByteArray& path, const QByteArray& bytes, Then then = &Peer::keep);
  void redirect(const QByteArray& path, const QByteArray& location) {
    answer(path, 302, {}, {"Location: " + location});
  }

  [[nodiscard]] QUrl url(const QByteArray& path) const;
  /// A PEM file of the authority behind this server's certificate.
  [[nodiscard]] static QString caFile();
  /// For a client that trusts this server and gives up after `patience`.
  [[nodiscard]] HttpOptions options(
      std::chrono::milliseconds patience = std::chrono::seconds(20)) const;
  /// All requests so far.
  [[nodiscard]] QList<Request> requests() const;
  /// How many connections have been made so far.
  [[nodiscard]] int connections() const { return connections_; }

  /// Closes the port and all connections.
  void die();
  /// Opens the same port again.
  void revive();

 private:
  void listen();
  void accept();
  void serve(int socket);
  // Remembers the request, too.
  [[nodiscard]] Handler handlerOf(const Request& request);

  std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> context_;
  quint16 port_ = 0;
  int listener_ = -1;
  std::atomic<bool> isDying_ = false;
  std::atomic<int> connections_ = 0;
  mutable std::mutex mutex_;
  QMap<QByteArray, Handler> handlers_;
  QList<Request> requests_;
  std::thread acceptor_;
  // Touched by the accepting thread, and by others when that has ended.
  std::vector<std::jthread> threads_;
};

}  // namespace orvex
