#include "companion/ManagedLUT.h"

#include "base/FileError.h"
#include "base/FileName.h"
#include "base/NewFile.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"
#include "lut/CloudLUTPreparation.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {
namespace {

// A player reads its copy again as long as it runs, which is days at the most.
constexpr std::time_t kKeptSeconds = std::time_t{30} * 24 * 60 * 60;

bool isCopyName(QByteArrayView name) {
  const FileName parts(name);
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  return parts.extension == "cube" && parts.stem.size() == 64 &&
         std::ranges::all_of(parts.stem, isDigit);
}

// Removes copies that no player has been given for so long. What cannot be removed stays.
void sweep(const Directory& copies) {
  const std::time_t oldest = std::time(nullptr) - kKeptSeconds;
  try {
    for (const QByteArray& name : copies.names()) {
      struct stat status {};
      if (isCopyName(name) &&
          ::fstatat(copies.descriptor(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
          status.st_mtim.tv_sec < oldest)
        ::unlinkat(copies.descriptor(), name.constData(), 0);
    }
  } catch (const FileError&) {
  }
}

}  // namespace

std::expected<ManagedLUT, QString> ManagedLUT::read(const Directory& library,
                                                    const QByteArray& path) {
  const QList<QByteArray> components = path.split('/');
  const QByteArray& name = components.last();
  const QByteArray digest = components.value(components.size() - 2);
  const QString title = QString::fromUtf8(FileName(name).stem.toByteArray());
  const auto refused = [&title](const QString& reason) {
    return std::unexpected(QStringLiteral("%1 LUT'u uygulanamadı: %2").arg(title, reason));
  };
  if (path != library.path(digest + '/' + name) || name.isEmpty() || digest.startsWith('.'))
    return refused(QStringLiteral("dosya yönetilen LUT kitaplığında değil."));
  std::optional<QByteArray> bytes;
  try {
    bytes = readSmallFile(library.folder(digest).file(name), CloudLUTPreparation::kMaximumBytes);
  } catch (const FileError& error) {
    return refused(error.description());
  }
  if (!bytes || Sha256::of(*bytes).toHex() != digest)
    return refused(QStringLiteral("kitaplıktaki kopya bozuk. Tekrar dene."));
  auto lattice = readCube(*bytes);
  if (!lattice)
    return refused(
        lattice.error().line > 0
            ? QStringLiteral("%1. satır: %2").arg(lattice.error().line).arg(lattice.error().reason)
            : lattice.error().reason);
  return ManagedLUT{title, *std::move(lattice)};
}

QByteArray ManagedLUT::writeForPlayer(const Directory& library) const {
  const QByteArray bytes = canonicalCube(lattice);
  const Directory folder = library.folderOrNew("Player Copies");
  const QByteArray file = Sha256::of(bytes).toHex() + ".cube";
  NewFile copy(folder);
  copy.write(bytes);
  copy.moveTo(file);
  sweep(folder);
  return folder.path(file);
}

}  // namespace orvex
