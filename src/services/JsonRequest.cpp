#include "services/JsonRequest.h"

namespace orvex {

std::optional<HttpResponse> fetchJson(const QUrl& url, const HttpOptions& http,
                                      std::chrono::milliseconds timeout, qint64 maximumBytes,
                                      const std::stop_token& stop) {
  try {
    return HttpClient(http).send({.url = url,
                                  .headers = {{"Accept", "application/json"}},
                                  .body = {},
                                  .timeout = timeout,
                                  .maximumBytes = maximumBytes},
                                 stop);
  } catch (const TransportError& error) {
    if (error.kind() != TransportError::Kind::NotHttp) throw;
    return std::nullopt;
  }
}

}  // namespace orvex
