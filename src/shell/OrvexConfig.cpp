#include "shell/OrvexConfig.h"

#include "base/Bundle.h"
#include "services/HttpsAddress.h"
#include "services/OrvexServices.h"
#include "services/ServicePaths.h"

namespace orvex {
namespace {

// The base address of the endpoints, without a slash at its end. A build with a host name that
// forms no address is a programming error and stops the process: there is nothing to fall back to.
QString& serviceBase() {
  static QString base = [] {
    const QString text = QStringLiteral("https://" ORVEX_SERVICE_HOST);
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty())
      qFatal("ORVEX_SERVICE_HOST does not form an address: %s", qUtf8Printable(text));
    return text;
  }();
  return base;
}

QUrl endpoint(const QString& path) {
  return QUrl(serviceBase() + path, QUrl::StrictMode);
}
QUrl manifest(const char* folder) {
  return endpoint(QLatin1String(folder) + u'/' + QLatin1String(ServicePaths::kManifest));
}

}  // namespace

std::expected<void, QString> OrvexConfig::useService(const QString& service) {
  if (service.isEmpty()) return {};
  const QUrl url(service, QUrl::StrictMode);
  if (!isHttpsAddress(url) || url.hasQuery() || url.hasFragment() || !url.userInfo().isEmpty()) {
    return std::unexpected(
        QStringLiteral("ORVEX_SERVICE geçersiz: \"%1\". https://sunucu[:port][/yol] biçiminde bir "
                       "adres ver.")
            .arg(service));
  }
  QString base = url.toString(QUrl::FullyEncoded);
  while (base.endsWith(u'/')) base.chop(1);
  serviceBase() = base;
  return {};
}

QUrl OrvexConfig::requestCenterURL() {
  return endpoint(QLatin1String(ServicePaths::kRequests));
}
QUrl OrvexConfig::updateManifestURL() {
  return manifest(ServicePaths::kReleases);
}
QUrl OrvexConfig::packsManifestURL() {
  return manifest(ServicePaths::kPacks);
}

OrvexServices OrvexConfig::services() {
  const HttpOptions http{.caFile = qEnvironmentVariable("ORVEX_CA_FILE")};
  return {ReleaseCenterClient(updateManifestURL(), http),
          UniversalPackClient(packsManifestURL(), UniversalPackClient::userRoot(), http),
          RequestCenterClient(requestCenterURL(), http)};
}

QString OrvexConfig::version() {
  return version(Bundle::main());
}

QString OrvexConfig::version(const Bundle& bundle) {
  const QVariant value = bundle.infoValue(QStringLiteral("CFBundleShortVersionString"));
  if (value.typeId() == QMetaType::QString) return value.toString();
  return QStringLiteral("0.3.13");
}

}  // namespace orvex
