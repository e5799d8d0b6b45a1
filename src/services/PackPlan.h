#pragma once

#include "services/UniversalPack.h"

#include <QByteArray>

namespace orvex {

/// Where a pack goes, and what belongs into it.
struct PackPlan {
  /// Names of folders, as the file system has them.
  QByteArray id;
  QByteArray version;
  QList<UniversalPackAsset> assets;
  /// Of all assets.
  std::int64_t bytes = 0;
};

/// Everything that a catalog says about a pack and that could do harm, checked before anything is
/// done about it. Throws `UniversalPackClientError`.
[[nodiscard]] PackPlan planOf(const UniversalPack& pack);

}  // namespace orvex
