#include "engines/LUTRegistry.h"

namespace orvex {

LUTRegistry::LUTRegistry(FolderBookmarkStore& bookmarks, QObject* parent)
    : InventoryRegistry(
          bookmarks,
          {QStringLiteral("LUT Library"), QStringLiteral(".cube klasörüne erişim ver."),
           QStringLiteral("LUT klasörünü seç"),
           QStringLiteral("vantrelo.orvex.finalcut.lutFolderBookmark")},
          &scanLUTs, parent) {
  restore();
}

}  // namespace orvex
