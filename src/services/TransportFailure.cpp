#include "services/TransportFailure.h"

#include <cerrno>
#include <openssl/x509_vfy.h>

namespace orvex {
namespace {

using Kind = TransportError::Kind;

TransportError certificateError(const QString& host, long verifyResult) {
  const auto because = [&host](const char16_t* reason) {
    return TransportError(Kind::Certificate, QString::fromUtf16(reason).arg(host));
  };
  switch (verifyResult) {
    case X509_V_ERR_CERT_HAS_EXPIRED:
      return because(
          u"\"%1\" sunucusunun sertifikasının süresi dolmuş. Bilgisayarının tarihini denetle; "
          u"doğruysa sunucunun sertifikası yenilenmeli.");
    case X509_V_ERR_CERT_NOT_YET_VALID:
      return because(
          u"\"%1\" sunucusunun sertifikası henüz geçerli değil. Bilgisayarının tarihini denetle.");
    // The chain holds, so it is the name that does not.
    case X509_V_OK:
    case X509_V_ERR_UNSPECIFIED:
    case X509_V_ERR_HOSTNAME_MISMATCH:
      return because(
          u"Sertifika \"%1\" sunucusuna ait değil, bağlantı kurulmadı. Sunucu adını ve bağlı "
          u"olduğun ağı denetle.");
    default:
      return because(
          u"\"%1\" sunucusunun sertifikasına güvenilmiyor, bağlantı kurulmadı. Bağlı olduğun ağı "
          u"denetle; sunucu kendi sertifikasını kullanıyorsa onu ORVEX_CA_FILE ile göster.");
  }
}

}  // namespace

TransportError tooLarge(const QString& host) {
  return {Kind::TooLarge,
          QStringLiteral("\"%1\" beklenenden büyük bir cevap gönderdi, alınmadı.").arg(host)};
}

TransportError timedOut(const QString& host) {
  return {Kind::TimedOut,
          QStringLiteral("\"%1\" zamanında cevap vermedi. İnternet bağlantını denetle, biraz sonra "
                         "yeniden dene.")
              .arg(host)};
}

TransportError transportError(const TransportFailure& failure) {
  const QString& host = failure.host;
  const auto error = [&host](Kind kind, const char16_t* text) {
    return TransportError(kind, QString::fromUtf16(text).arg(host));
  };
  switch (failure.code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return error(Kind::Unreachable,
                   u"\"%1\" sunucusu bulunamadı. İnternet bağlantını ve sunucu adını denetle.");
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_PROXY:
      return error(Kind::Unreachable,
                   u"\"%1\" için kullanılan vekil sunucuya (proxy) bağlanılamadı. Proxy ayarını "
                   u"denetle.");
    case CURLE_COULDNT_CONNECT:
      if (failure.systemError == ENETUNREACH || failure.systemError == ENETDOWN)
        return error(Kind::Unreachable,
                     u"\"%1\" sunucusuna bağlanılamadı: ağ bağlantısı yok. İnternete bağlanıp "
                     u"yeniden dene.");
      return error(
          Kind::Unreachable,
          u"\"%1\" sunucusuna bağlanılamadı. İnternet bağlantını denetle; sunucu kapalıysa "
          u"biraz sonra yeniden dene.");
    case CURLE_OPERATION_TIMEDOUT:
      return timedOut(host);
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_ISSUER_ERROR:
      return certificateError(host, failure.verifyResult);
    case CURLE_SSL_CACERT_BADFILE:
      return error(Kind::Certificate,
                   u"\"%1\" ile bağlantı kurulmadı: sistemin güvendiği sertifikaların listesi yok. "
                   u"ca-certificates paketini kur.");
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CIPHER:
      return error(Kind::Broken,
                   u"\"%1\" ile güvenli bağlantı kurulamadı. Adresi ve bağlı olduğun ağı denetle.");
    case CURLE_TOO_MANY_REDIRECTS:
      return error(Kind::Refused, u"\"%1\" bitmeyen bir yönlendirme gönderdi, izlenmedi.");
    case CURLE_UNSUPPORTED_PROTOCOL:
      if (!failure.unanswered)
        return error(Kind::Refused,
                     u"\"%1\" https olmayan bir adrese yönlendirdi, izlenmedi. Bağlı olduğun ağ "
                     u"giriş istiyorsa önce tarayıcıda giriş yap.");
      [[fallthrough]];
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_HTTP2:
      return error(Kind::NotHttp, u"\"%1\" geçersiz bir cevap gönderdi.");
    // What the library says of a header line beyond its own limit.
    case CURLE_OUT_OF_MEMORY:
      return tooLarge(host);
    case CURLE_URL_MALFORMAT:
      return error(Kind::Refused,
                   u"\"%1\" için verilen adres kullanılamıyor: https:// ile başlayan geçerli bir "
                   u"adres gerekir.");
    default:
      return error(Kind::Broken,
                   u"\"%1\" ile bağlantı koptu. İnternet bağlantını denetle, yeniden dene.");
  }
}

}  // namespace orvex
