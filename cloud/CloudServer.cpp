#include "cloud/CloudServer.h"

#include "base/DescribedError.h"
#include "cloud/CloudAnswers.h"

#include <QDateTime>

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <microhttpd.h>
#include <mutex>
#include <netinet/in.h>

namespace orvex {
namespace {

using Clock = std::chrono::steady_clock;

// Each connection holds a thread.
constexpr unsigned kMaximumConnections = 256;
constexpr unsigned kMaximumConnectionsOfOne = 64;
constexpr unsigned kIdleSeconds = 30;
// A body that is too long is read to its end up to here, so that the client gets to read why it is
// refused: an answer before that is lost where the connection ends with bytes on their way.
constexpr qint64 kMaximumDrained = 16 * kMaximumRequest;
// What is read of a file at once.
constexpr std::size_t kBlock = std::size_t{256} * 1024;

// Lets waiting transfers know that the server ends.
class Closing {
 public:
  void begin() {
    const std::scoped_lock lock(mutex_);
    begun_ = true;
    changed_.notify_all();
  }
  // Waits until `moment`; false when the server ends first.
  [[nodiscard]] bool waitUntil(Clock::time_point moment) {
    std::unique_lock lock(mutex_);
    return !changed_.wait_until(lock, moment, [this] { return begun_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool begun_ = false;
};

// A part of a file on its way out.
struct Transfer {
  PublishedFile file;
  qint64 offset = 0;
  qint64 bytesPerSecond = 0;
  Closing& closing;
  // Counts what has been sent.
  qint64& sent;
  Clock::time_point begun = Clock::now();

  ssize_t read(qint64 position, char* buffer, std::size_t size) {
    if (bytesPerSecond > 0) {
      // Ten steps a second.
      size = std::min(size, static_cast<std::size_t>(std::max<qint64>(bytesPerSecond / 10, 1)));
      const double seconds = static_cast<double>(position) / static_cast<double>(bytesPerSecond);
      if (!closing.waitUntil(begun + std::chrono::microseconds(std::llround(seconds * 1e6))))
        return MHD_CONTENT_READER_END_WITH_ERROR;
    }
    ssize_t count = 0;
    do count = ::pread(file.file.get(), buffer, size, offset + position);
    while (count < 0 && errno == EINTR);
    // The length has been told: a file that has been cut since cannot be ended properly.
    if (count <= 0) return MHD_CONTENT_READER_END_WITH_ERROR;
    sent += count;
    return count;
  }
};

// An exchange from its first line to its end.
struct Running {
  QByteArray target;
  Clock::time_point begun = Clock::now();
  CloudExchange exchange{};
  bool headersRead = false;
  qint64 received = 0;
  int status = 0;
  qint64 bytes = 0;
};

QByteArray header(MHD_Connection* connection, const char* name) {
  return MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
}

QByteArray peerOf(MHD_Connection* connection) {
  const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
  char text[INET6_ADDRSTRLEN] = "?";
  if (info != nullptr && info->client_addr->sa_family == AF_INET6)
    ::inet_ntop(AF_INET6, &reinterpret_cast<const sockaddr_in6*>(info->client_addr)->sin6_addr,
                text, sizeof text);
  else if (info != nullptr)
    ::inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in*>(info->client_addr)->sin_addr, text,
                sizeof text);
  return text;
}

// As it came, with what a terminal would obey written out; never so long that it fills the log.
QByteArray shown(const QByteArray& target) {
  QByteArray text;
  for (const char c : QByteArrayView(target).first(std::min<qsizetype>(target.size(), 300)))
    text += c > ' ' && c < '\x7f' ? QByteArray(1, c) : '%' + QByteArray(1, c).toHex();
  return text;
}

QByteArray logLine(const Running& running, const QByteArray& peer, bool complete) {
  const auto milliseconds =
      std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - running.begun);
  return QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1() + ' ' + peer + ' ' +
         running.exchange.method + ' ' + shown(running.target) + ' ' +
         QByteArray::number(running.status) + ' ' + QByteArray::number(running.bytes) + " B " +
         QByteArray::number(qint64{milliseconds.count()}) + " ms" + (complete ? "" : " kesildi");
}

}  // namespace

class CloudServer::Daemon {
 public:
  Daemon(ListenSocket socket, Directory published, RequestStore& requests,
         const CloudServerOptions& options, Log log)
      : published_(std::move(published)),
        requests_(requests),
        bytesPerSecond_(options.bytesPerSecond),
        log_(std::move(log)) {
    daemon_ = MHD_start_daemon(
        MHD_USE_TLS | MHD_USE_POLL_INTERNAL_THREAD | MHD_USE_THREAD_PER_CONNECTION, 0, nullptr,
        nullptr, &Daemon::handle, this, MHD_OPTION_LISTEN_SOCKET, socket.socket.get(),
        MHD_OPTION_HTTPS_MEM_CERT, options.certificate.chain.constData(), MHD_OPTION_HTTPS_MEM_KEY,
        options.certificate.key.constData(), MHD_OPTION_HTTPS_PRIORITIES,
        "NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2", MHD_OPTION_CONNECTION_LIMIT,
        kMaximumConnections, MHD_OPTION_PER_IP_CONNECTION_LIMIT, kMaximumConnectionsOfOne,
        MHD_OPTION_CONNECTION_TIMEOUT, kIdleSeconds, MHD_OPTION_URI_LOG_CALLBACK, &Daemon::begin,
        nullptr, MHD_OPTION_NOTIFY_COMPLETED, &Daemon::end, this, MHD_OPTION_END);
    if (daemon_ == nullptr)
      throw DescribedError(QStringLiteral(
          "HTTPS sunucusu başlatılamadı. Sertifika ile anahtarın PEM olduğunu ve birbirine ait "
          "olduğunu denetle."));
    // It closes the socket.
    (void)socket.socket.release();
  }

  ~Daemon() {
    closing_.begin();
    MHD_stop_daemon(daemon_);
  }
  Daemon(const Daemon&) = delete;
  Daemon& operator=(const Daemon&) = delete;

 private:
  static void* begin(void*, const char* target, MHD_Connection*) {
    return new Running{.target = target};
  }

  // Called when the header is there, then for each piece of the body, then at its end.
  static MHD_Result handle(void* self, MHD_Connection* connection, const char*, const char* method,
                           const char*, const char* piece, std::size_t* size, void** context) {
    auto& running = *static_cast<Running*>(*context);
    if (!running.headersRead) {
      running.headersRead = true;
      running.exchange.method = method;
      running.exchange.path = running.target.split('?').first();
      running.exchange.contentType = header(connection, "Content-Type");
      running.exchange.conditions = {header(connection, "If-None-Match"),
                                     header(connection, "If-Modified-Since"),
                                     header(connection, "If-Range"), header(connection, "Range")};
      running.exchange.bodyTooLong =
          header(connection, "Content-Length").toULongLong() > quint64{kMaximumDrained};
      if (!running.exchange.bodyTooLong) return MHD_YES;
    } else if (*size > 0) {
      running.received += static_cast<qint64>(*size);
      running.exchange.bodyTooLong = running.received > kMaximumRequest;
      if (!running.exchange.bodyTooLong)
        running.exchange.body.append(piece, static_cast<qsizetype>(*size));
      *size = 0;
      return running.received <= kMaximumDrained ? MHD_YES : MHD_NO;
    }
    return static_cast<Daemon*>(self)->reply(connection, running);
  }

  MHD_Result reply(MHD_Connection* connection, Running& running) {
    CloudAnswer made = answer(running.exchange, published_, requests_);
    running.status = made.status;
    running.bytes = made.body.size();
    MHD_Response* response = nullptr;
    if (made.file) {
      auto transfer = std::make_unique<Transfer>(
          Transfer{std::move(*made.file), made.offset, bytesPerSecond_, closing_, running.bytes});
      response = MHD_create_response_from_callback(
          static_cast<std::uint64_t>(made.bytes), kBlock,
          [](void* body, std::uint64_t position, char* buffer, std::size_t size) {
            return static_cast<Transfer*>(body)->read(static_cast<qint64>(position), buffer, size);
          },
          transfer.get(), [](void* body) { delete static_cast<Transfer*>(body); });
      if (response != nullptr) (void)transfer.release();
    } else {
      response = MHD_create_response_from_buffer(static_cast<std::size_t>(made.body.size()),
                                                 made.body.data(), MHD_RESPMEM_MUST_COPY);
    }
    if (response == nullptr) return MHD_NO;
    for (const auto& [name, value] : std::as_const(made.headers))
      MHD_add_response_header(response, name, value.constData());
    const MHD_Result queued =
        MHD_queue_response(connection, static_cast<unsigned>(made.status), response);
    MHD_destroy_response(response);
    return queued;
  }

  static void end(void* self, MHD_Connection* connection, void** context,
                  MHD_RequestTerminationCode code) {
    const std::unique_ptr<Running> running(static_cast<Running*>(std::exchange(*context, nullptr)));
    // A connection may also end before anything was asked on it.
    if (running && running->headersRead)
      static_cast<Daemon*>(self)->log_(
          logLine(*running, peerOf(connection), code == MHD_REQUEST_TERMINATED_COMPLETED_OK));
  }

  const Directory published_;
  RequestStore& requests_;
  const qint64 bytesPerSecond_;
  const Log log_;
  Closing closing_;
  MHD_Daemon* daemon_ = nullptr;
};

CloudServer::CloudServer(ListenSocket socket, Directory published, RequestStore& requests,
                         const CloudServerOptions& options, Log log)
    : daemon_(std::make_unique<Daemon>(std::move(socket), std::move(published), requests, options,
                                       std::move(log))) {}

CloudServer::~CloudServer() = default;

}  // namespace orvex
