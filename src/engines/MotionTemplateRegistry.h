#pragma once

#include "engines/EngineRegistry.h"

namespace orvex {

/// The inventory of the Motion templates of the folder that the user granted.
class MotionTemplateRegistry : public EngineRegistry {
  Q_OBJECT

 public:
  using EngineRegistry::EngineRegistry;

  [[nodiscard]] EngineSummary summary() const override {
    return {EngineHealth::NeedsAccess, QStringLiteral("Motion Templates"),
            QStringLiteral("Motion Templates klasörüne erişim ver."), 0};
  }
};

}  // namespace orvex
