#pragma once

#include "cloud/PackSource.h"

#include <QUrl>

namespace orvex {

/// What was made of a vendor's folder.
struct CatalogBuild {
  QString revision;
  qint64 packs = 0;
  /// Files of the packs and their bytes.
  qint64 files = 0;
  qint64 bytes = 0;
  /// Whether anything published is other than before.
  bool changed = false;
};

/// Publishes what the vendor keeps in `vendor`: of the packs in its folder `packs` (see
/// `PackSource`) the catalog and the files, and `release.json` as the release manifest, all below
/// its folder `public`, which a web server may hand out as it is. `catalogURL` is where clients
/// will find the catalog; it tells them where the files are.
///
/// The same source over the same `public` gives the same bytes. Whoever reads the tree meanwhile
/// sees the old catalog or the new one, and the files of both. Files that were published once stay
/// as they are: other contents need another version. Throws `CatalogSourceError`,
/// `FileError`.
CatalogBuild buildCatalog(const Directory& vendor, const QUrl& catalogURL);

}  // namespace orvex
