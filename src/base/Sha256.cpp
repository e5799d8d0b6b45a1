#include "base/Sha256.h"

#include "base/SystemLibrary.h"

#include <new>
#include <openssl/evp.h>

namespace orvex {
namespace {

struct Crypto {
  static const Crypto& loaded() {
    static const Crypto crypto;
    return crypto;
  }

  SystemLibrary library{"crypto", OPENSSL_SHLIB_VERSION};
#define ORVEX_EVP(name) \
  decltype(::EVP_##name)* const name = library.function<decltype(::EVP_##name)>("EVP_" #name)
  ORVEX_EVP(MD_CTX_new);
  ORVEX_EVP(MD_CTX_free);
  ORVEX_EVP(sha256);
  ORVEX_EVP(DigestInit_ex);
  ORVEX_EVP(DigestUpdate);
  ORVEX_EVP(DigestFinal_ex);
#undef ORVEX_EVP
};

}  // namespace

void Sha256::Free::operator()(evp_md_ctx_st* context) const noexcept {
  Crypto::loaded().MD_CTX_free(context);
}

Sha256::Sha256() : context_(Crypto::loaded().MD_CTX_new()) {
  const Crypto& crypto = Crypto::loaded();
  // What can fail here is memory.
  if (!context_ || crypto.DigestInit_ex(context_.get(), crypto.sha256(), nullptr) != 1)
    throw std::bad_alloc();
}

void Sha256::add(QByteArrayView bytes) {
  if (Crypto::loaded().DigestUpdate(context_.get(), bytes.data(),
                                    static_cast<std::size_t>(bytes.size())) != 1)
    throw std::bad_alloc();
}

QByteArray Sha256::finish() {
  QByteArray digest(32, Qt::Uninitialized);
  if (Crypto::loaded().DigestFinal_ex(
          context_.get(), reinterpret_cast<unsigned char*>(digest.data()), nullptr) != 1)
    throw std::bad_alloc();
  return digest;
}

QByteArray Sha256::of(QByteArrayView bytes) {
  Sha256 digest;
  digest.add(bytes);
  return digest.finish();
}

}  // namespace orvex
