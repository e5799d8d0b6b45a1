#include "ui/color/GradedPicture.h"

#include <algorithm>

namespace orvex {
namespace {

int level(float value) {
  return static_cast<int>(std::clamp(value, 0.0F, 1.0F) * 255 + 0.5F);
}

}  // namespace

QImage previewSource(const QImage& picture) {
  if (picture.isNull()) return {};
  const QImage scaled =
      picture.scaled(kPreviewSize, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
  QRect middle(QPoint(), kPreviewSize);
  middle.moveCenter(scaled.rect().center());
  return scaled.copy(middle).convertToFormat(QImage::Format_RGB32);
}

QImage graded(const CubeLattice& lattice, const QImage& source) {
  QImage result(source.size(), QImage::Format_RGB32);
  constexpr float kLevels = 255;
  for (int y = 0; y < source.height(); ++y) {
    const auto* from = reinterpret_cast<const QRgb*>(source.constScanLine(y));
    auto* to = reinterpret_cast<QRgb*>(result.scanLine(y));
    for (int x = 0; x < source.width(); ++x) {
      const Rgb colour = lattice.apply({static_cast<float>(qRed(from[x])) / kLevels,
                                        static_cast<float>(qGreen(from[x])) / kLevels,
                                        static_cast<float>(qBlue(from[x])) / kLevels});
      to[x] = qRgb(level(colour[0]), level(colour[1]), level(colour[2]));
    }
  }
  return result;
}

}  // namespace orvex
