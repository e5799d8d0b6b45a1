#pragma once

#include <QString>
#include <QUrl>

#include <expected>

namespace orvex {

class Bundle;
struct OrvexServices;

/// Where the vendor's services are and which version this is.
namespace OrvexConfig {

/// Takes the services' base address from `service`, an absolute https address without query or
/// fragment whose path, if any, is put before the endpoints' own; empty keeps the address fixed at
/// build time. Call it before the first endpoint is read. The error, in Turkish, says what is wrong
/// with the text; nothing is changed then.
[[nodiscard]] std::expected<void, QString> useService(const QString& service);

/// The request centre's endpoint.
[[nodiscard]] QUrl requestCenterURL();
/// The release manifest.
[[nodiscard]] QUrl updateManifestURL();
/// The content-pack catalog.
[[nodiscard]] QUrl packsManifestURL();

/// The clients of the three endpoints, with the packs below the user's own folder. What the
/// variable ORVEX_CA_FILE names is trusted beside the system's certificates.
[[nodiscard]] OrvexServices services();

/// The version in the running bundle's information list, or the version of this build where that
/// has none or it is no text.
[[nodiscard]] QString version();
/// The same for any bundle.
[[nodiscard]] QString version(const Bundle& bundle);

}  // namespace OrvexConfig
}  // namespace orvex
