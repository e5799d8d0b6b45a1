#pragma once

#include "engines/FolderRegistry.h"
#include "engines/LUTScan.h"

namespace orvex {

/// The user's own library of LUT files.
class LUTRegistry : public InventoryRegistry<LUTItem> {
  Q_OBJECT

 public:
  explicit LUTRegistry(FolderBookmarkStore& bookmarks, FirstReading firstReading = nullptr,
                       QObject* parent = nullptr);
};

}  // namespace orvex
