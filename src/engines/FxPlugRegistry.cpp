#include "engines/FxPlugRegistry.h"

namespace orvex {

FxPlugRegistry::FxPlugRegistry(FolderBookmarkStore& bookmarks, QObject* parent)
    : InventoryRegistry(
          bookmarks,
          {QStringLiteral("FxPlug Registry"), QStringLiteral("FxPlug klasörüne erişim ver."),
           QStringLiteral("FxPlug klasörünü seç"),
           QStringLiteral("vantrelo.orvex.finalcut.fxplugFolderBookmark")},
          &scanFxPlugs, parent) {
  restore();
}

}  // namespace orvex
