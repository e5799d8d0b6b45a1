#pragma once

#include "services/HttpClient.h"
#include "services/UniversalPackCatalog.h"

namespace orvex {

/// Fetches the catalog of content packs from `url`, past every cache on the way. Blocking, 20
/// seconds at most. Throws `UniversalPackClientError`, `TransportError`, `JsonError`, `Stopped`.
[[nodiscard]] UniversalPackCatalog fetchPackCatalog(QUrl url, const HttpOptions& http,
                                                    const std::stop_token& stop);

}  // namespace orvex
