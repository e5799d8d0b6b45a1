#pragma once

#include <QByteArray>

#include <memory>
#include <openssl/evp.h>
#include <openssl/x509.h>

namespace orvex {

struct FreeCertificate {
  void operator()(EVP_PKEY* key) const noexcept { EVP_PKEY_free(key); }
  void operator()(X509* certificate) const noexcept { X509_free(certificate); }
};

/// A certificate for "localhost" on this machine, or one that a client must refuse there, made anew
/// with each process.
struct TestCertificate {
  enum class Kind { Valid, SelfSigned, Expired, NotYetValid, WrongHost };

  std::unique_ptr<EVP_PKEY, FreeCertificate> key;
  std::unique_ptr<X509, FreeCertificate> certificate;

  /// Signed by the authority of this process, unless it signs itself.
  [[nodiscard]] static TestCertificate make(Kind kind);
  /// The certificate of the authority, as PEM.
  [[nodiscard]] static QByteArray authorityPem();
};

}  // namespace orvex
