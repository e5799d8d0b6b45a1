#include "engines/FxPlugRegistry.h"

namespace orvex {

FxPlugRegistry::FxPlugRegistry(FolderBookmarkStore& bookmarks, FirstReading firstReading,
                               QObject* parent)
    : InventoryRegistry(
          bookmarks,
          {QStringLiteral("FxPlug Registry"), QStringLiteral("FxPlug klasörüne erişim ver."),
           QStringLiteral("FxPlug klasörünü seç"),
           QStringLiteral("vantrelo.orvex.finalcut.fxplugFolderBookmark")},
          &scanFxPlugs, std::move(firstReading), parent) {
  restore();
}

}  // namespace orvex
