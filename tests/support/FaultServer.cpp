#include "support/FaultServer.h"

#include <arpa/inet.h>
#include <csignal>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orvex {
using namespace std::chrono_literals;

static const QByteArray kCertificates = ORVEX_TEST_CERTIFICATES "/";

std::optional<FaultServer::Request> FaultServer::Peer::receive() {
  QByteArray bytes;
  qsizetype end = -1;
  const auto more = [&] {
    pollfd poll{SSL_get_fd(connection_), POLLIN, 0};
    while (SSL_pending(connection_) == 0 && ::poll(&poll, 1, 5) == 0)
      if (server_.isDying_) return false;
    char buffer[16384];
    const int count = SSL_read(connection_, buffer, sizeof buffer);
    if (count > 0) bytes.append(buffer, count);
    return count > 0;
  };
  while ((end = bytes.indexOf("\r\n\r\n")) < 0)
    if (!more()) return std::nullopt;
  const QList<QByteArray> lines = bytes.first(end).split('\n');
  const QList<QByteArray> first = lines[0].trimmed().split(' ');
  Request request{.method = first[0], .target = first.value(1)};
  for (const QByteArray& line : lines.mid(1)) {
    const qsizetype colon = line.indexOf(':');
    request.headers.insert(line.first(colon).toLower(), line.mid(colon + 1).trimmed());
  }
  const qsizetype size = request.headers.value("content-length").toLongLong();
  while (bytes.size() < end + 4 + size)
    if (!more()) return std::nullopt;
  request.body = bytes.mid(end + 4, size);
  return request;
}

bool FaultServer::Peer::send(const QByteArray& bytes) {
  return bytes.isEmpty() ||
         SSL_write(connection_, bytes.constData(), static_cast<int>(bytes.size())) > 0;
}

bool FaultServer::Peer::reply(int status, const QByteArray& body,
                              const QList<QByteArray>& headers) {
  QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + " Scripted\r\n";
  for (const QByteArray& line : headers) head += line + "\r\n";
  return send(head + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

bool FaultServer::Peer::pause(std::chrono::milliseconds time) {
  const auto until = std::chrono::steady_clock::now() + time;
  do {
    pollfd poll{SSL_get_fd(connection_), POLLRDHUP, 0};
    if (server_.isDying_ || ::poll(&poll, 1, time > 0ms ? 5 : 0) > 0) return false;
  } while (std::chrono::steady_clock::now() < until);
  return true;
}

void FaultServer::Peer::reset() {
  constexpr linger kAtOnce{1, 0};
  ::setsockopt(SSL_get_fd(connection_), SOL_SOCKET, SO_LINGER, &kAtOnce, sizeof kAtOnce);
  SSL_set_quiet_shutdown(connection_, 1);
  close();
}

FaultServer::FaultServer(const char* certificate)
    : context_(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free) {
  // Whoever runs the tests may reach the rest of the world through a proxy.
  qputenv("no_proxy", "localhost");
  const QByteArray path = kCertificates + certificate + ".pem";
  EXPECT_EQ(SSL_CTX_use_certificate_file(context_.get(), path.constData(), SSL_FILETYPE_PEM), 1);
  EXPECT_EQ(SSL_CTX_use_PrivateKey_file(context_.get(), path.constData(), SSL_FILETYPE_PEM), 1);
  listen();
}

void FaultServer::listen() {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_GE(listener_, 0);
  constexpr int kOn = 1;
  ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &kOn, sizeof kOn);
  sockaddr_in address{.sin_family = AF_INET,
                      .sin_port = htons(port_),
                      .sin_addr = {htonl(INADDR_LOOPBACK)},
                      .sin_zero = {}};
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  EXPECT_EQ(::bind(listener_, any, size), 0);
  EXPECT_EQ(::listen(listener_, 64), 0);
  ::getsockname(listener_, any, &size);
  port_ = ntohs(address.sin_port);
  isDying_ = false;
  acceptor_ = std::thread([this] { accept(); });
}

void FaultServer::accept() {
  // A client that has gone is no reason to end the process. Only here: were it ignored everywhere,
  // nobody would see what it does to the client.
  sigset_t pipe;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
  for (;;) {
    const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0 || isDying_) {
      ::close(socket);
      return;
    }
    ++connections_;
    threads_.emplace_back([this, socket] { serve(socket); });
  }
}

void FaultServer::serve(int socket) {
  const std::unique_ptr<SSL, void (*)(SSL*)> connection(SSL_new(context_.get()), &SSL_free);
  SSL_set_fd(connection.get(), socket);
  Peer peer(*this, connection.get());
  if (SSL_accept(connection.get()) == 1) {
    while (peer.isOpen() && !isDying_) {
      const auto request = peer.receive();
      if (!request) break;
      handlerOf (*request)(peer, *request);
    }
    SSL_shutdown(connection.get());
  }
  ::close(socket);
}

FaultServer::Handler FaultServer::handlerOf(const Request& request) {
  const std::scoped_lock lock(mutex_);
  requests_.append(request);
  return handlers_.value(request.target.split('?').first(),
                         [](Peer& peer, const Request&) { peer.reply(404, "nothing here"); });
}

void FaultServer::on(const QByteArray& path, const Handler& handler) {
  const std::scoped_lock lock(mutex_);
  handlers_.insert(path, handler);
}

void FaultServer::answer(const QByteArray& path, int status, const QByteArray& body,
                         const QList<QByteArray>& headers) {
  on(path, [=](Peer& peer, const Request&) { peer.reply(status, body, headers); });
}

void FaultServer::say(const QByteArray& path, const QByteArray& bytes, Then then) {
  on(path, [=](Peer& peer, const Request&) {
    peer.send(bytes);
    (peer.*then)();
  });
}

QString FaultServer::caFile() {
  return QString::fromUtf8(kCertificates + "ca.pem");
}

QUrl FaultServer::url(const QByteArray& path) const {
  return QUrl(QStringLiteral("https://localhost:%1").arg(port_) + QString::fromUtf8(path));
}

HttpOptions FaultServer::options(std::chrono::milliseconds patience) const {
  return {.caFile = caFile(), .stallTimeout = patience, .longestTimeout = patience};
}

QList<FaultServer::Request> FaultServer::requests() const {
  const std::scoped_lock lock(mutex_);
  return requests_;
}

void FaultServer::die() {
  if (!acceptor_.joinable()) return;
  isDying_ = true;
  ::shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  ::close(listener_);
  threads_.clear();
}

void FaultServer::revive() {
  die();
  listen();
}

}  // namespace orvex
