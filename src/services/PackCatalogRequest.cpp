#include "services/PackCatalogRequest.h"

#include "services/JsonRequest.h"
#include "services/UniversalPackClientError.h"

#include <QDateTime>

namespace orvex {
namespace {

using namespace std::chrono_literals;
using Kind = UniversalPackClientError::Kind;

constexpr auto kTimeout = 20s;
// Room for ten thousand packs of twenty files each.
constexpr qint64 kMaximumBytes = qint64{64} * 1024 * 1024;

}  // namespace

UniversalPackCatalog fetchPackCatalog(QUrl url, const HttpOptions& http,
                                      const std::stop_token& stop) {
  url.setQuery(QStringLiteral("ts=%1").arg(QDateTime::currentSecsSinceEpoch()));
  if (!url.isValid()) throw UniversalPackClientError(Kind::InvalidCatalog);
  const auto response = fetchJson(url, http, kTimeout, kMaximumBytes, stop);
  if (!response) throw UniversalPackClientError(Kind::InvalidResponse);
  if (!isSuccess(response->status)) throw UniversalPackClientError(response->status);
  UniversalPackCatalog catalog = UniversalPackCatalog::decode(response->body);
  if (catalog.schemaVersion != 1) throw UniversalPackClientError(Kind::InvalidCatalog);
  return catalog;
}

}  // namespace orvex
