#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

namespace orvex {

/// One file of a content pack.
struct UniversalPackAsset {
  /// A bare name, no path.
  QString file;
  /// 64 lower-case hexadecimal digits.
  QString sha256;
  std::int64_t bytes = 0;
  /// Absolute "https" address.
  std::optional<QString> url;

  friend bool operator==(const UniversalPackAsset&, const UniversalPackAsset&) = default;
};

/// Where a pack came from before its present version.
struct UniversalPackRollback {
  std::optional<QString> previousVersion;
  std::optional<QString> previousManifestSHA256;

  friend bool operator==(const UniversalPackRollback&, const UniversalPackRollback&) = default;
};

/// One content pack of the catalog.
struct UniversalPack {
  Q_GADGET

 public:
  std::int64_t schemaVersion = 0;
  QString id;
  QString name;
  QString version;
  QList<QString> targets;
  QList<UniversalPackAsset> sharedAssets;
  QHash<QString, QList<UniversalPackAsset>> variants;
  UniversalPackRollback rollback;
  std::optional<QString> manifestSHA256;

  friend bool operator==(const UniversalPack&, const UniversalPack&) = default;
};

}  // namespace orvex
