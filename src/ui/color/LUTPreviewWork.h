#pragma once

#include "lut/CubeLattice.h"

#include <QImage>

#include <expected>

namespace orvex {

class PreviewStore;

/// The picture that looks are shown on.
struct PreviewSource {
  /// Of `kPreviewSize`, opaque.
  QImage picture{};
  /// SHA-256 of its pixels.
  QByteArray digest{};

  [[nodiscard]] static PreviewSource of(const QImage& picture);
};

/// Why there is no picture.
struct LUTPreviewError {
  /// In Turkish.
  QString reason{};
  /// It is the file's contents; otherwise it may go well the next time.
  bool isBroken = false;

  friend bool operator==(const LUTPreviewError&, const LUTPreviewError&) = default;
};

using LUTPreviewResult = std::expected<QImage, LUTPreviewError>;

/// What the LUT in the file `path` (raw bytes) makes of `source`, from `store` or made and put
/// there. Only what is regular and at most 64 MiB is read. Blocking, any thread.
[[nodiscard]] LUTPreviewResult makeLUTPreview(const QByteArray& path, const PreviewSource& source,
                                              PreviewStore& store);

}  // namespace orvex
