#include "services/UniversalPackClientError.h"

namespace orvex {
namespace {

using Kind = UniversalPackClientError::Kind;

QString describe(Kind kind, const QString& detail) {
  switch (kind) {
    case Kind::Http:
      return QStringLiteral("Universal Pack HTTP ") + detail;
    case Kind::InvalidAsset:
      return QStringLiteral("Geçersiz pack dosyası: ") + detail;
    case Kind::MissingURL:
      return QStringLiteral("Pack dosyası için indirme URL'si yok: ") + detail;
    case Kind::SizeMismatch:
      return QStringLiteral("Dosya boyutu doğrulanamadı: ") + detail;
    case Kind::HashMismatch:
      return QStringLiteral("SHA-256 doğrulaması başarısız: ") + detail;
    case Kind::InvalidResponse:
      return QStringLiteral("Universal Pack sunucu cevabı geçersiz.");
    case Kind::InvalidCatalog:
      return QStringLiteral("Universal Pack kataloğu geçersiz.");
  }
  Q_UNREACHABLE();
}

}  // namespace

UniversalPackClientError::UniversalPackClientError(Kind kind)
    : UniversalPackClientError(kind, QString()) {}

UniversalPackClientError::UniversalPackClientError(Kind kind, const QString& file)
    : DescribedError(describe(kind, file)), kind_(kind) {}

UniversalPackClientError::UniversalPackClientError(int status)
    : UniversalPackClientError(Kind::Http, QString::number(status)) {}

}  // namespace orvex
