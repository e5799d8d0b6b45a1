#include "engines/LUTRegistry.h"

namespace orvex {

LUTRegistry::LUTRegistry(FolderBookmarkStore& bookmarks, FirstReading firstReading, QObject* parent)
    : InventoryRegistry(
          bookmarks,
          {QStringLiteral("LUT Library"), QStringLiteral(".cube klasörüne erişim ver."),
           QStringLiteral("LUT klasörünü seç"),
           QStringLiteral("vantrelo.orvex.finalcut.lutFolderBookmark")},
          &scanLUTs, std::move(firstReading), parent) {
  restore();
}

}  // namespace orvex
