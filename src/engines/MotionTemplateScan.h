#pragma once

#include "engines/FoundFile.h"
#include "engines/Inventory.h"

#include <cstdint>
#include <optional>

namespace orvex {

/// In the order in which the kinds are listed.
enum class MotionTemplateKind : std::uint8_t { Effect, Generator, Title, Transition };

/// "effect", "generator", "title" or "transition".
[[nodiscard]] QString rawValue(MotionTemplateKind kind);

/// A Motion template's project file.
struct MotionTemplateItem : FoundFile {
  MotionTemplateKind kind = MotionTemplateKind::Effect;
  /// There is a picture beside the file.
  bool hasPreview = false;

  /// The name of the folder two levels above the file, or "Uncategorized".
  [[nodiscard]] QString category() const;
  /// The picture, when there is one.
  [[nodiscard]] std::optional<QUrl> previewURL() const;

  friend bool operator==(const MotionTemplateItem&, const MotionTemplateItem&) = default;
};

/// Lists every template below `root` (absolute, raw bytes) by kind, then by name. Blocking; throws
/// `DescribedError`, `Stopped`.
[[nodiscard]] Inventory<MotionTemplateItem> scanMotionTemplates(const QByteArray& root,
                                                                const WorkControl& control,
                                                                const ScanOptions& options = {});

}  // namespace orvex
