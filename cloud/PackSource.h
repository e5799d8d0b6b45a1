#pragma once

#include "base/DescribedError.h"
#include "base/Directory.h"
#include "services/UniversalPack.h"

#include <vector>

namespace orvex {

/// What is to be published is not as it has to be; says what is wrong where, and how to mend it.
class CatalogSourceError final : public DescribedError {
 public:
  using DescribedError::DescribedError;
};

/// Files of a pack that lie in one folder, measured.
struct PackSourceFolder {
  /// "shared" or "variants/<target>".
  QString name;
  /// Empty for the files that every target gets.
  QString target;
  Directory folder;
  /// In the order of their names' bytes, without addresses.
  QList<UniversalPackAsset> assets;
};

/// A pack as its author laid it out: `pack.json` with "name", "version" and "targets", the folders
/// `shared` and `variants/<target>` with the files.
struct PackSource {
  QString id;
  QString name;
  QString version;
  QList<QString> targets;
  std::vector<PackSourceFolder> folders;
};

/// Reads all packs below `packs`, one in each folder, in the order of their identifiers' bytes, and
/// measures their files. Refuses what no panel would install. Throws `CatalogSourceError`,
/// `JsonError`, `FileError`.
[[nodiscard]] std::vector<PackSource> readPackSources(const Directory& packs);

}  // namespace orvex
