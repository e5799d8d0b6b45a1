#include "ui/color/LUTPreviewWork.h"

#include "base/FileDescriptor.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"
#include "lut/CloudLUTPreparation.h"
#include "ui/color/GradedPicture.h"
#include "ui/color/PreviewStore.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace orvex {
namespace {

// What may be applied at all.
using CloudLUTPreparation::kMaximumBytes;

std::unexpected<LUTPreviewError> unreadable() {
  return std::unexpected(LUTPreviewError{QStringLiteral("Dosya okunamadı.")});
}

std::unexpected<LUTPreviewError> broken(const CubeError& error) {
  return std::unexpected(LUTPreviewError{
      error.line > 0 ? QStringLiteral("Satır %1: %2").arg(error.line).arg(error.reason)
                     : error.reason,
      true});
}

}  // namespace

PreviewSource PreviewSource::of(const QImage& picture) {
  PreviewSource source{previewSource(picture)};
  source.digest = Sha256::of({source.picture.constBits(), source.picture.sizeInBytes()});
  return source;
}

LUTPreviewResult makeLUTPreview(const QByteArray& path, const PreviewSource& source,
                                PreviewStore& store) {
  const FileDescriptor file(::open(path.constData(), kReadFile));
  struct stat status {};
  if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return unreadable();
  if (status.st_size > kMaximumBytes) return broken({0, QStringLiteral("Dosya 64 MiB'tan büyük.")});
  const FileIdentity identity = FileIdentity::of(status);
  const auto known = store.digest(identity);
  if (known)
    if (QImage picture = store.find(*known, source.digest); !picture.isNull()) return picture;

  const auto text = readSmallFile(file, kMaximumBytes);
  if (!text) return unreadable();
  const QByteArray digest = Sha256::of(*text);
  QImage picture = store.find(digest, source.digest);
  if (picture.isNull()) {
    const auto lattice = readCube(*text);
    if (!lattice) return broken(lattice.error());
    // It would be offered, and refused as soon as it is to be applied.
    if (!CloudLUTPreparation::isThreeDimensional(*text))
      return broken({lattice->sizeLine,
                     QStringLiteral("LUT_3D_SIZE ile sayı arasında sekme değil boşluk olmalı.")});
    picture = graded(*lattice, source.picture);
    store.add(digest, source.digest, picture);
  }
  if (known != digest) store.remember(identity, digest);
  return picture;
}

}  // namespace orvex
