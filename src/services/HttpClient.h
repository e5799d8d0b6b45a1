#pragma once

#include "base/DescribedError.h"

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
};

struct HttpRequest {
  QUrl url;
  QByteArray method = "GET";
  QList<std::pair<QByteArray, QByteArray>> headers;
  QByteArray body;
  /// For the whole exchange, the connection included.
  std::chrono::milliseconds timeout{};
  /// The answer's body may not be longer.
  qint64 maximumBytes = 0;
};

struct HttpResponse {
  int status = 0;
  QByteArray body;
};

/// No answer came: no connection, a certificate that does not hold, a redirect that is refused, a
/// connection that broke or stalled, a body beyond its limit.
class TransportError final : public DescribedError {
 public:
  using DescribedError::DescribedError;
};

/// Exchanges over HTTPS and nothing else; redirects are followed a few hops and to https only.
/// Connections are kept for the next exchange of the same client. Blocking; one thread at a time.
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
  /// arrives. Returns the status. A download that stalls ends. Throws `TransportError`, `Stopped`.
  [[nodiscard]] int download(const QUrl& url, const Sink& sink, const std::stop_token& stop);

 private:
  class Connection;
  std::unique_ptr<Connection> connection_;
};

}  // namespace orvex
