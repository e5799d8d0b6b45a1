#include "base/Sha256.h"

#include <new>
#include <openssl/evp.h>

namespace orvex {

void Sha256::Free::operator()(evp_md_ctx_st* context) const noexcept {
  EVP_MD_CTX_free(context);
}

Sha256::Sha256() : context_(EVP_MD_CTX_new()) {
  // What can fail here is memory.
  if (!context_ || EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr) != 1)
    throw std::bad_alloc();
}

void Sha256::add(QByteArrayView bytes) {
  if (EVP_DigestUpdate(context_.get(), bytes.data(), static_cast<std::size_t>(bytes.size())) != 1)
    throw std::bad_alloc();
}

QByteArray Sha256::finish() {
  QByteArray digest(32, Qt::Uninitialized);
  if (EVP_DigestFinal_ex(context_.get(), reinterpret_cast<unsigned char*>(digest.data()),
                         nullptr) != 1)
    throw std::bad_alloc();
  return digest;
}

QByteArray Sha256::of(QByteArrayView bytes) {
  Sha256 digest;
  digest.add(bytes);
  return digest.finish();
}

}  // namespace orvex
