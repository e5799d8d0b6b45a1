#include "support/TestCertificate.h"

#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

namespace orvex {
namespace {

constexpr long kDay = 24 * 60 * 60;

void extend(X509* certificate, int type, const char* value) {
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
  X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, &context, type, value);
  X509_add_ext(certificate, extension, -1);
  X509_EXTENSION_free(extension);
}

// Not signed yet.
TestCertificate unsignedFor(const char* name, long firstDay, long lastDay) {
  static long serial = 0;
  TestCertificate made;
  made.key.reset(EVP_EC_gen("P-256"));
  made.certificate.reset(X509_new());
  X509* const certificate = made.certificate.get();
  X509_set_version(certificate, X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++serial);
  X509_gmtime_adj(X509_getm_notBefore(certificate), firstDay * kDay);
  X509_gmtime_adj(X509_getm_notAfter(certificate), lastDay * kDay);
  X509_set_pubkey(certificate, made.key.get());
  X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_UTF8,
                             reinterpret_cast<const unsigned char*>(name), -1, -1, 0);
  X509_set_issuer_name(certificate, X509_get_subject_name(certificate));
  return made;
}

void sign(const TestCertificate& made, const TestCertificate& by) {
  X509_set_issuer_name(made.certificate.get(), X509_get_subject_name(by.certificate.get()));
  X509_sign(made.certificate.get(), by.key.get(), EVP_sha256());
}

const TestCertificate& authority() {
  static const TestCertificate made = [] {
    TestCertificate root = unsignedFor("Test authority", -1, 2);
    extend(root.certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
    sign(root, root);
    return root;
  }();
  return made;
}

}  // namespace

TestCertificate TestCertificate::make(Kind kind) {
  const long firstDay = kind == Kind::NotYetValid ? 1 : kind == Kind::Expired ? -2 : -1;
  const long lastDay = kind == Kind::Expired ? -1 : 2;
  TestCertificate made = unsignedFor("Test server", firstDay, lastDay);
  extend(made.certificate.get(), NID_subject_alt_name,
         kind == Kind::WrongHost ? "DNS:elsewhere.example" : "DNS:localhost,IP:127.0.0.1");
  sign(made, kind == Kind::SelfSigned ? made : authority());
  return made;
}

QByteArray TestCertificate::authorityPem() {
  const std::unique_ptr<BIO, int (*)(BIO*)> memory(BIO_new(BIO_s_mem()), &BIO_free);
  PEM_write_bio_X509(memory.get(), authority().certificate.get());
  char* data = nullptr;
  const long size = BIO_get_mem_data(memory.get(), &data);
  return {data, size};
}

}  // namespace orvex
