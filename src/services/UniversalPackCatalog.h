#pragma once

#include "base/Collation.h"
#include "services/UniversalPack.h"

namespace orvex {

/// The vendor's catalog of content packs, for all hosts.
struct UniversalPackCatalog {
  std::int64_t schemaVersion = 0;
  QString revision;
  std::optional<QString> previousRevisionSHA256;
  QList<UniversalPack> packs;

  /// Reads the JSON document. Throws `JsonError`.
  [[nodiscard]] static UniversalPackCatalog decode(const QByteArray& json);
  [[nodiscard]] QByteArray encode() const;

  friend bool operator==(const UniversalPackCatalog&, const UniversalPackCatalog&) = default;
};

/// This panel's packs of the catalog, by name in the order of `collation`.
[[nodiscard]] QList<UniversalPack> finalCutPacks(const UniversalPackCatalog& catalog,
                                                 const Collation& collation = Collation());
/// The files of the pack for this panel: the shared ones, then those of its variant.
[[nodiscard]] QList<UniversalPackAsset> finalCutAssets(const UniversalPack& pack);
/// Their sizes in all, bytes. Sizes come from the network: a negative one counts 0, and a sum
/// beyond 64 bits is the greatest number of them.
[[nodiscard]] std::int64_t totalBytes(const QList<UniversalPackAsset>& assets);

}  // namespace orvex
