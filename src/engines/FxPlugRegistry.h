#pragma once

#include "engines/EngineRegistry.h"

namespace orvex {

/// The inventory of the FxPlug bundles of the folder that the user granted.
class FxPlugRegistry : public EngineRegistry {
  Q_OBJECT

 public:
  using EngineRegistry::EngineRegistry;

  [[nodiscard]] EngineSummary summary() const override {
    return {EngineHealth::NeedsAccess, QStringLiteral("FxPlug Registry"),
            QStringLiteral("FxPlug klasörüne erişim ver."), 0};
  }
};

}  // namespace orvex
