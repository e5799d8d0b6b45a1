#pragma once

#include "services/TransportError.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>
#include <utility>

namespace orvex {

/// What every connection of the panel is made with.
struct HttpOptions {
  /// A PEM file of certificates trusted beside the system's; empty for none.
  QString caFile;
  /// Until a connection stands, its certificate checked.
  std::chrono::milliseconds connectTimeout = std::chrono::seconds(15);
  /// A download ends that brings less than `minimumRate` bytes a second for so long.
  std::chrono::milliseconds stallTimeout = std::chrono::seconds(30);
  qint64 minimumRate = 1000;
  /// Where positive, what `HttpRequest::timeout` is cut down to: for tests, which do not wait as
  /// long as the services' limits are.
  std::chrono::milliseconds longestTimeout{};
};

struct HttpRequest {
  QUrl url;
  /// "GET", or "POST" with a body.
  QByteArray method = "GET";
  QList<std::pair<QByteArray, QByteArray>> headers;
  QByteArray body;
  /// For the whole exchange, the connection included.
  std::chrono::milliseconds timeout{};
  /// The answer's body may not be longer; where the status is no success, what is longer is cut.
  qint64 maximumBytes = 0;
};

/// Whether a status says that what was asked for was done.
[[nodiscard]] constexpr bool isSuccess(int status) noexcept {
  return status >= 200 && status <= 299;
}

struct HttpResponse {
  int status = 0;
  QByteArray body;
};

/// Exchanges over HTTPS and nothing else; redirects are followed a few hops and to https only. The
/// proxies that the environment names are used. Connections are kept for the next exchange of the
/// same client. Blocking, but ends at once when it is asked to stop; one thread at a time.
class HttpClient final {
 public:
  explicit HttpClient(const HttpOptions& options);
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  /// Sends `request` and returns the answer, whatever its status. Throws `TransportError`,
  /// `Stopped`.
  [[nodiscard]] HttpResponse send(const HttpRequest& request, const std::stop_token& stop);

  /// Takes the next bytes of a body. What it throws ends the download and is passed on.
  using Sink = std::function<void(QByteArrayView)>;
  /// Gets `url` and hands the body of an answer with a status of 200 to 299 to `sink` while it
  /// arrives. Returns the status. Throws `TransportError`, `Stopped`.
  [[nodiscard]] int download(const QUrl& url, const Sink& sink, const std::stop_token& stop);

 private:
  class Connection;
  std::unique_ptr<Connection> connection_;
};

}  // namespace orvex
