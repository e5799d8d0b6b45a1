#include "engines/MotionTemplateRegistry.h"

namespace orvex {

MotionTemplateRegistry::MotionTemplateRegistry(FolderBookmarkStore& bookmarks,
                                               FirstReading firstReading, QObject* parent)
    : InventoryRegistry(bookmarks,
                        {QStringLiteral("Motion Templates"),
                         QStringLiteral("Motion Templates klasörüne erişim ver."),
                         QStringLiteral("Motion Templates klasörünü seç"),
                         QStringLiteral("vantrelo.orvex.finalcut.motionTemplatesBookmark")},
                        &scanMotionTemplates, std::move(firstReading), parent) {
  restore();
}

qint64 MotionTemplateRegistry::count(MotionTemplateKind kind) const {
  return std::ranges::count(items(), kind, &MotionTemplateItem::kind);
}

}  // namespace orvex
