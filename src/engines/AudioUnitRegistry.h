#pragma once

#include "engines/EngineRegistry.h"

#include <QDateTime>

namespace orvex {

/// The inventory of the audio effects that the system has registered. No system's registry is read
/// yet, so it is always empty; it keeps the time at which it was last asked.
class AudioUnitRegistry : public EngineRegistry {
  Q_OBJECT

 public:
  using EngineRegistry::EngineRegistry;

  Q_INVOKABLE void refresh() {
    lastRefresh_ = QDateTime::currentDateTimeUtc();
    Q_EMIT changed();
  }

  [[nodiscard]] const QDateTime& lastRefresh() const noexcept { return lastRefresh_; }
  [[nodiscard]] EngineSummary summary() const override {
    return {EngineHealth::Empty, QStringLiteral("Audio Units"),
            QStringLiteral("Kayıtlı AU effect bulunamadı."), 0};
  }

 private:
  QDateTime lastRefresh_ = QDateTime::currentDateTimeUtc();
};

}  // namespace orvex
