#pragma once

#include "platform/AudioComponents.h"
#include "platform/linux/lv2/LilvPointers.h"

#include <optional>

namespace orvex {

/// Reads what LV2's data files say of an effect into the record of a registered component.
/// docs/audio.md says where each field comes from.
class EffectReader {
 public:
  /// `world` outlives this and has its specifications and plug-in classes loaded.
  explicit EffectReader(LilvWorld& world);

  /// Nothing when `plugin` is no effect: an instrument, a generator, something without audio inputs
  /// or outputs, or one that another plug-in says it replaces.
  [[nodiscard]] std::optional<AudioComponent> read(const LilvPlugin& plugin) const;

 private:
  [[nodiscard]] LilvPointer<LilvNode> uri(const char* text) const;
  [[nodiscard]] bool isEffect(const LilvPlugin& plugin) const;
  [[nodiscard]] bool makesSoundItself(const LilvPlugin& plugin) const;
  [[nodiscard]] QString manufacturer(const LilvPlugin& plugin) const;
  [[nodiscard]] QString versionNumber(const LilvPlugin& plugin, const LilvNode& predicate) const;
  void readFeatures(const LilvPlugin& plugin, AudioComponent& component) const;

  LilvWorld& world_;
  const LilvPointer<LilvNode> audioPort_, inputPort_, outputPort_;
  const LilvPointer<LilvNode> type_, maintainer_, replaces_, minorVersion_, microVersion_;
  const LilvPointer<LilvNode> hardRealTime_;
};

}  // namespace orvex
