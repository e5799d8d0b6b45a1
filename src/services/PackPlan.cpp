#include "services/PackPlan.h"

#include "services/HttpsAddress.h"
#include "services/PackNames.h"
#include "services/Product.h"
#include "services/UniversalPackCatalog.h"
#include "services/UniversalPackClientError.h"

#include <limits>

namespace orvex {

using Kind = UniversalPackClientError::Kind;

PackPlan planOf(const UniversalPack& pack) {
  if (!pack.targets.contains(kPackTarget) || !isPackName(pack.version))
    throw UniversalPackClientError(Kind::InvalidCatalog);
  PackPlan plan{.id = packFolderName(pack.id),
                .version = pack.version.toUtf8(),
                .assets = finalCutAssets(pack)};
  for (const UniversalPackAsset& asset : std::as_const(plan.assets)) {
    if (!isAssetName(asset.file)) throw UniversalPackClientError(Kind::InvalidAsset, asset.file);
    // The scheme as it is written; a parsed address has it in lower case whatever it was.
    if (!asset.url || !asset.url->startsWith(u"https:") ||
        !isHttpsAddress(QUrl(*asset.url, QUrl::StrictMode)))
      throw UniversalPackClientError(Kind::MissingURL, asset.file);
    // No file is as small, and no disk takes that much.
    if (asset.bytes < 0 || asset.bytes > std::numeric_limits<std::int64_t>::max() - plan.bytes)
      throw UniversalPackClientError(Kind::SizeMismatch, asset.file);
    plan.bytes += asset.bytes;
  }
  return plan;
}

}  // namespace orvex
