#include "platform/linux/LinuxFolderAccess.h"

#include "base/FileError.h"
#include "base/FileUrl.h"
#include "platform/linux/FolderGrant.h"

namespace orvex {

void LinuxFolderAccess::chooseFolder(const QString& title, const QString& prompt, const QUrl& start,
                                     std::function<void(std::optional<QUrl>)> chosen) {
  chooser_.choose(title, prompt, start, std::move(chosen));
}

QByteArray LinuxFolderGrants::makeGrant(const QUrl& folder) {
  const QByteArray path = filePath(folder);
  if (path.isEmpty())
    throw DescribedError(QStringLiteral("%1 bu bilgisayarda bir klasör değil. Bir klasör seç.")
                             .arg(folder.toDisplayString()));
  const auto grant = FolderGrant::of(path);
  if (!grant && grant.error() == std::errc::not_a_directory)
    throw DescribedError(
        QStringLiteral("%1 bir klasör değil. Bir klasör seç.").arg(QString::fromUtf8(path)));
  if (!grant)
    throw DescribedError(
        QStringLiteral("%1 klasör olarak açılamadı. (%2) Okunabilir olduğunu denetle.")
            .arg(QString::fromUtf8(path), reasonOf(grant.error().value())));
  return grant->toBytes();
}

FolderGrants::Resolved LinuxFolderGrants::resolveGrant(const QByteArray& grant) {
  const auto decoded = FolderGrant::fromBytes(grant);
  if (!decoded) throw DescribedError(QStringLiteral("Klasör izni bozuk. Klasörü yeniden seç."));
  const auto place = decoded->locate();
  if (!place)
    throw DescribedError(
        QStringLiteral("%1 artık yok. Klasörü yeniden seç.").arg(QString::fromUtf8(decoded->path)));
  return {fileUrl(place->path), place->moved};
}

}  // namespace orvex
