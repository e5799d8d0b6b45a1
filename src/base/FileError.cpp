#include "base/FileError.h"

#include <QFile>

#include <cerrno>
#include <cstring>

namespace orvex {

QString reasonOf(int code) {
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
      return QStringLiteral(
          "yolda klasör yerine bir bağlantı ya da dosya var; başka bir yol ver ya da onu kaldır");
    case EEXIST:
      return QStringLiteral("bu adda bir dosya ya da klasör zaten var; onu kaldır");
    case EINVAL:
      return QStringLiteral("düz bir dosya değil; klasörler ve özel dosyalar olmaz");
    case ENAMETOOLONG:
      return QStringLiteral("ad çok uzun");
    case ECONNREFUSED:
      return QStringLiteral("orada dinleyen yok");
    case EMFILE:
    case ENFILE:
      return QStringLiteral("çok fazla dosya açık; başka programları kapat");
    default:
      return QString::fromLocal8Bit(std::strerror(code));
  }
}

FileError::FileError(const QString& what, const QByteArray& path, int code)
    : DescribedError(
          QStringLiteral("%1 %2: %3.").arg(QFile::decodeName(path), what, reasonOf(code))),
      code_(code) {}

}  // namespace orvex
