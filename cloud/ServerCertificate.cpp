#include "cloud/ServerCertificate.h"

#include "base/DescribedError.h"
#include "base/NewFile.h"
#include "base/SmallFile.h"

#include <memory>
#include <openssl/bn.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace orvex {
namespace {

constexpr auto kAuthorityKey = "ca.key";
constexpr long kDay = 24L * 60 * 60;
constexpr long kAuthorityDays = 3650;
// What clients accept at most for a server. It is made anew at every start.
constexpr long kServerDays = 397;

struct Free {
  void operator()(EVP_PKEY* key) const noexcept { ::EVP_PKEY_free(key); }
  void operator()(X509* certificate) const noexcept { ::X509_free(certificate); }
  void operator()(X509_EXTENSION* extension) const noexcept { ::X509_EXTENSION_free(extension); }
  void operator()(BIGNUM* number) const noexcept { ::BN_free(number); }
  void operator()(BIO* bio) const noexcept { ::BIO_free(bio); }
};
using Key = std::unique_ptr<EVP_PKEY, Free>;
using Certificate = std::unique_ptr<X509, Free>;
using Bio = std::unique_ptr<BIO, Free>;

struct Authority {
  Certificate certificate;
  Key key;
};

void require(bool done) {
  if (done) return;
  throw DescribedError(
      QStringLiteral("Sunucu sertifikası yapılamadı (OpenSSL: %1). --cert ve --key ile bir "
                     "sertifika ver.")
          .arg(QString::fromLatin1(::ERR_reason_error_string(::ERR_get_error()))));
}

Key makeKey() {
  Key key(::EVP_EC_gen("P-256"));
  require(key != nullptr);
  return key;
}

void addExtension(X509& certificate, X509& issuer, int kind, const QByteArray& value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, &issuer, &certificate, nullptr, nullptr, 0);
  const std::unique_ptr<X509_EXTENSION, Free> extension(
      ::X509V3_EXT_conf_nid(nullptr, &context, kind, value.constData()));
  require(extension && ::X509_add_ext(&certificate, extension.get(), -1) == 1);
}

// What the two certificates have in common; the caller adds what tells them apart and signs.
Certificate makeCertificate(EVP_PKEY& key, const char* name, long days) {
  Certificate made(::X509_new());
  const std::unique_ptr<BIGNUM, Free> serial(::BN_new());
  require(made && serial && ::X509_set_version(made.get(), X509_VERSION_3) == 1 &&
          ::BN_rand(serial.get(), 127, BN_RAND_TOP_ANY, BN_RAND_BOTTOM_ANY) == 1 &&
          ::BN_to_ASN1_INTEGER(serial.get(), ::X509_get_serialNumber(made.get())) != nullptr &&
          // Clocks that lag a little are no reason to refuse it.
          ::X509_gmtime_adj(::X509_getm_notBefore(made.get()), -kDay) != nullptr &&
          ::X509_gmtime_adj(::X509_getm_notAfter(made.get()), days * kDay) != nullptr &&
          ::X509_set_pubkey(made.get(), &key) == 1 &&
          ::X509_NAME_add_entry_by_txt(::X509_get_subject_name(made.get()), "CN", MBSTRING_UTF8,
                                       reinterpret_cast<const unsigned char*>(name), -1, -1,
                                       0) == 1);
  return made;
}

QByteArray takeText(BIO& bio) {
  char* data = nullptr;
  const long size = BIO_get_mem_data(&bio, &data);
  return {data, size};
}

QByteArray pem(X509& certificate) {
  const Bio bio(::BIO_new(::BIO_s_mem()));
  require(bio && ::PEM_write_bio_X509(bio.get(), &certificate) == 1);
  return takeText(*bio);
}

QByteArray pem(EVP_PKEY& key) {
  const Bio bio(::BIO_new(::BIO_s_mem()));
  require(bio &&
          ::PEM_write_bio_PrivateKey(bio.get(), &key, nullptr, nullptr, 0, nullptr, nullptr) == 1);
  return takeText(*bio);
}

Authority makeAuthority(const Directory& folder) {
  Authority made{nullptr, makeKey()};
  made.certificate = makeCertificate(*made.key, "Vantrelo Orvex Cloud", kAuthorityDays);
  X509& certificate = *made.certificate;
  require(::X509_set_issuer_name(&certificate, ::X509_get_subject_name(&certificate)) == 1);
  addExtension(certificate, certificate, NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
  addExtension(certificate, certificate, NID_key_usage, "critical,keyCertSign");
  addExtension(certificate, certificate, NID_subject_key_identifier, "hash");
  require(::X509_sign(&certificate, made.key.get(), ::EVP_sha256()) > 0);
  folder.keepPrivate();
  replaceDurably(folder, kAuthorityKey, pem(*made.key));
  replaceDurably(folder, kAuthorityCertificate, pem(certificate));
  return made;
}

// Both empty when what is kept cannot be used for as long as a server's certificate lasts.
Authority readAuthority(const Directory& folder) {
  constexpr qsizetype kMaximum = 64 * 1024;
  const auto certificate = readSmallFile(folder.descriptor(), kAuthorityCertificate, kMaximum);
  const auto key = readSmallFile(folder.descriptor(), kAuthorityKey, kMaximum);
  if (!certificate || !key) return {};
  const Bio certificateBio(
      ::BIO_new_mem_buf(certificate->constData(), static_cast<int>(certificate->size())));
  const Bio keyBio(::BIO_new_mem_buf(key->constData(), static_cast<int>(key->size())));
  require(certificateBio && keyBio);
  Authority read{
      Certificate(::PEM_read_bio_X509(certificateBio.get(), nullptr, nullptr, nullptr)),
      // The callback stands for asking at the terminal, which is no place for a server to wait.
      Key(::PEM_read_bio_PrivateKey(
          keyBio.get(), nullptr, [](char*, int, int, void*) { return 0; }, nullptr))};
  time_t end = ::time(nullptr) + kServerDays * kDay;
  if (!read.certificate || !read.key ||
      ::X509_check_private_key(read.certificate.get(), read.key.get()) != 1 ||
      ::X509_cmp_time(::X509_get0_notAfter(read.certificate.get()), &end) < 0) {
    ::ERR_clear_error();
    return {};
  }
  return read;
}

}  // namespace

ServerCertificate makeServerCertificate(const Directory& folder, const QByteArray& address) {
  Authority authority = readAuthority(folder);
  if (!authority.key) authority = makeAuthority(folder);
  const Key key = makeKey();
  const Certificate certificate = makeCertificate(*key, "Vantrelo Orvex Cloud server", kServerDays);
  require(::X509_set_issuer_name(certificate.get(),
                                 ::X509_get_subject_name(authority.certificate.get())) == 1);
  const auto add = [&](int kind, const QByteArray& value) {
    addExtension(*certificate, *authority.certificate, kind, value);
  };
  add(NID_basic_constraints, "critical,CA:FALSE");
  add(NID_key_usage, "critical,digitalSignature");
  add(NID_ext_key_usage, "serverAuth");
  add(NID_authority_key_identifier, "keyid");
  add(NID_subject_alt_name, "DNS:localhost,IP:" + address);
  require(::X509_sign(certificate.get(), authority.key.get(), ::EVP_sha256()) > 0);
  return {pem(*certificate) + pem(*authority.certificate), pem(*key)};
}

}  // namespace orvex
