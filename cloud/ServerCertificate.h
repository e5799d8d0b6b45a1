#pragma once

#include "base/Directory.h"

namespace orvex {

/// What a server proves with who it is; both PEM.
struct ServerCertificate {
  /// The server's own certificate, then the one that it was signed with.
  QByteArray chain;
  QByteArray key;
};

/// The certificate in a folder that clients have to trust.
inline constexpr auto kAuthorityCertificate = "ca.pem";

/// A new certificate for a server that is reached under `address` (an IP address) and as
/// "localhost", signed with the authority kept in `folder` as ca.pem and ca.key. The authority is
/// made when it is missing, cannot be used or is about to expire; the folder becomes the user's
/// alone for its key. Throws `FileError`, `DescribedError`.
[[nodiscard]] ServerCertificate makeServerCertificate(const Directory& folder,
                                                      const QByteArray& address);

}  // namespace orvex
