#pragma once

#include "services/HttpClient.h"

#include <optional>

namespace orvex {

/// Asks `url` for a JSON document of at most `maximumBytes`, past every cache of this machine.
/// Nothing where what came back was not HTTP. Blocking. Throws `TransportError`, `Stopped`.
[[nodiscard]] std::optional<HttpResponse> fetchJson(const QUrl& url, const HttpOptions& http,
                                                    std::chrono::milliseconds timeout,
                                                    qint64 maximumBytes,
                                                    const std::stop_token& stop);

}  // namespace orvex
