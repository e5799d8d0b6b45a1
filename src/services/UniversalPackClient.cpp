#include "services/UniversalPackClient.h"

#include "base/UserFolders.h"
#include "services/PackCatalogRequest.h"
#include "services/PackStore.h"

#include <QFile>

namespace orvex {
namespace {

using Kind = UniversalPackClientError::Kind;

// Hands the file to `sink`. The address has been checked with all others of its pack.
void download(HttpClient& http, const UniversalPackAsset& asset, const HttpClient::Sink& sink,
              const std::stop_token& stop) {
  int status = 0;
  try {
    status = http.download(QUrl(asset.url.value_or(QString()), QUrl::StrictMode), sink, stop);
  } catch (const TransportError& error) {
    if (error.kind() != TransportError::Kind::NotHttp) throw;
    throw UniversalPackClientError(Kind::InvalidResponse);
  }
  if (!isSuccess(status)) throw UniversalPackClientError(status);
}

}  // namespace

UniversalPackClient::UniversalPackClient(QUrl catalogURL, QString root, HttpOptions http)
    : catalogURL_(std::move(catalogURL)), root_(std::move(root)), http_(std::move(http)) {}

QString UniversalPackClient::userRoot() {
  return userDataFolder() + QStringLiteral("/UniversalPacks");
}

UniversalPackCatalog UniversalPackClient::fetchCatalog(const std::stop_token& stop) const {
  return fetchPackCatalog(catalogURL_, http_, stop);
}

QList<UniversalPack> UniversalPackClient::finalCutPacks(const std::stop_token& stop) const {
  return orvex::finalCutPacks(fetchCatalog(stop));
}

void UniversalPackClient::install(const UniversalPack& pack, const WorkControl& control) const {
  // One for all files: its connection is kept from file to file.
  HttpClient http(http_);
  store().install(
      pack,
      [&](const UniversalPackAsset& asset, const HttpClient::Sink& sink) {
        download(http, asset, sink, control.stop);
      },
      control);
}

void UniversalPackClient::uninstall(const QString& packID, const std::stop_token& stop) const {
  store().uninstall(packID, stop);
}

QList<UniversalInstalledPack> UniversalPackClient::installedPacks() const {
  return store().installedPacks();
}

PackStore UniversalPackClient::store() const {
  return PackStore(QFile::encodeName(root_));
}

}  // namespace orvex
