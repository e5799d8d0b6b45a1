#pragma once

#include "engines/FolderRegistry.h"
#include "engines/MotionTemplateScan.h"

namespace orvex {

/// The Motion templates of the folder that the user granted.
class MotionTemplateRegistry : public InventoryRegistry<MotionTemplateItem> {
  Q_OBJECT

 public:
  explicit MotionTemplateRegistry(FolderBookmarkStore& bookmarks,
                                  FirstReading firstReading = nullptr, QObject* parent = nullptr);

  /// How many templates are of this kind.
  [[nodiscard]] qint64 count(MotionTemplateKind kind) const;
};

}  // namespace orvex
