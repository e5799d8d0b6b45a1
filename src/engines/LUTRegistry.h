#pragma once

#include "engines/EngineRegistry.h"

namespace orvex {

/// The inventory of the LUT files of the folder that the user granted.
class LUTRegistry : public EngineRegistry {
  Q_OBJECT

 public:
  using EngineRegistry::EngineRegistry;

  [[nodiscard]] EngineSummary summary() const override {
    return {EngineHealth::NeedsAccess, QStringLiteral("LUT Library"),
            QStringLiteral(".cube klasörüne erişim ver."), 0};
  }
};

}  // namespace orvex
