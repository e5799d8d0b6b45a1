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
constexpr qsizetype kMaximumBytes = qsizetype{64} * 1024 * 1024;

std::unexpected<CubeError> unreadable() {
  return std::unexpected(CubeError{0, QStringLiteral("Dosya okunamadı.")});
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
  if (status.st_size > kMaximumBytes)
    return std::unexpected(CubeError{0, QStringLiteral("Dosya 64 MiB'tan büyük.")});
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
    if (!lattice) return std::unexpected(lattice.error());
    // It would be offered, and refused as soon as it is to be applied.
    if (!CloudLUTPreparation::isThreeDimensional(*text))
      return std::unexpected(
          CubeError{lattice->sizeLine,
                    QStringLiteral("LUT_3D_SIZE ile sayı arasında sekme değil boşluk olmalı.")});
    picture = graded(*lattice, source.picture);
    store.add(digest, source.digest, picture);
  }
  if (known != digest) store.remember(identity, digest);
  return picture;
}

}  // namespace orvex
