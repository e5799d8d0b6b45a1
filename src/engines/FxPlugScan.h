#pragma once

#include "base/FileUrl.h"
#include "engines/Inventory.h"

namespace orvex {

/// A plug-in bundle.
struct FxPlugItem {
  /// The bundle's identifier, or its path when it has none or an empty one.
  QString id;
  QString name;
  /// The same as `id`.
  QString bundleIdentifier;
  /// As the bundle writes it, or "—".
  QString version;
  /// Of the bundle, absolute, raw bytes.
  QByteArray path;

  [[nodiscard]] QUrl fileURL() const { return fileUrl(path); }

  friend bool operator==(const FxPlugItem&, const FxPlugItem&) = default;
};

/// Lists every bundle below `root` (absolute, raw bytes) by name; any folder counts as a bundle,
/// and what lies in a package is left alone. Of bundles with the same identifier the one with the
/// last path counts. Blocking; throws `DescribedError`, `Stopped`.
[[nodiscard]] Inventory<FxPlugItem> scanFxPlugs(const QByteArray& root, const WorkControl& control,
                                                const ScanOptions& options = {});

}  // namespace orvex
