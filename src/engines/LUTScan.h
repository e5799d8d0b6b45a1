#pragma once

#include "engines/FoundFile.h"
#include "engines/Inventory.h"

#include <optional>

namespace orvex {

/// A `.cube` file of the library.
struct LUTItem : FoundFile {
  std::optional<QString> title;
  /// As `LUTHeader::dimension`.
  QString dimension;

  friend bool operator==(const LUTItem&, const LUTItem&) = default;
};

/// Lists every `.cube` file below `root` (absolute, raw bytes) with what its header says, by name.
/// A file that cannot be read as text is listed all the same. Files that did not change since a
/// scan with the same cache folder are not read again. Blocking; throws `DescribedError`,
/// `Stopped`.
[[nodiscard]] Inventory<LUTItem> scanLUTs(const QByteArray& root, const WorkControl& control,
                                          const ScanOptions& options = {});

}  // namespace orvex
