#pragma once

#include "engines/FolderRegistry.h"
#include "engines/FxPlugScan.h"

namespace orvex {

/// The plug-in bundles of the folder that the user granted.
class FxPlugRegistry : public InventoryRegistry<FxPlugItem> {
  Q_OBJECT

 public:
  explicit FxPlugRegistry(FolderBookmarkStore& bookmarks, FirstReading firstReading = nullptr,
                          QObject* parent = nullptr);
};

}  // namespace orvex
