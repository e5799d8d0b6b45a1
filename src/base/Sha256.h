#pragma once

#include <QByteArray>

#include <memory>

struct evp_md_ctx_st;

namespace orvex {

/// The SHA-256 digest of bytes that come piece by piece.
class Sha256 {
 public:
  /// Throws `DescribedError` where the system's libcrypto is missing.
  Sha256();

  void add(QByteArrayView bytes);
  /// The digest, 32 bytes. Ends the calculation.
  [[nodiscard]] QByteArray finish();
  /// The digest of `bytes` alone.
  [[nodiscard]] static QByteArray of(QByteArrayView bytes);

 private:
  struct Free {
    void operator()(evp_md_ctx_st* context) const noexcept;
  };
  std::unique_ptr<evp_md_ctx_st, Free> context_;
};

}  // namespace orvex
