#include "base/FileError.h"

#include <QFile>

#include <cerrno>
#include <cstring>

namespace orvex {
namespace {

// What people meet, with what to do about it; the rest in the system's own words.
QString reason(int code) {
  switch (code) {
    case ENOSPC:
    case EDQUOT:
      return QStringLiteral("diskte yer kalmadı; yer aç ve yeniden dene");
    case EACCES:
    case EPERM:
      return QStringLiteral("izin yok; klasörün izinlerini denetle");
    case EROFS:
      return QStringLiteral("dosya sistemi salt okunur");
    case EIO:
      return QStringLiteral("diskte okuma ya da yazma hatası; diski denetle");
    case ENOENT:
      return QStringLiteral("dosya ya da klasör yok");
    case ENOTDIR:
    case ELOOP:
      return QStringLiteral("yolda klasör yerine bir bağlantı ya da dosya var; onu kaldır");
    case EEXIST:
      return QStringLiteral("bu adda bir dosya ya da klasör zaten var; onu kaldır");
    case EINVAL:
      return QStringLiteral("bu türden bir dosyayla yapılamaz");
    case ENAMETOOLONG:
      return QStringLiteral("ad çok uzun");
    case EMFILE:
    case ENFILE:
      return QStringLiteral("çok fazla dosya açık; başka programları kapat");
    default:
      return QString::fromLocal8Bit(std::strerror(code));
  }
}

}  // namespace

FileError::FileError(const QString& what, const QByteArray& path, int code)
    : DescribedError(QStringLiteral("%1 %2: %3.").arg(QFile::decodeName(path), what, reason(code))),
      code_(code) {}

}  // namespace orvex
