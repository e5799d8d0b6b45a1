#pragma once

#include "engines/EngineHealth.h"

#include <QObject>

namespace orvex {

/// What every inventory of the panel has in common: it sums itself up.
class EngineRegistry : public QObject {
  Q_OBJECT
  Q_PROPERTY(orvex::EngineSummary summary READ summary NOTIFY changed FINAL)

 public:
  using QObject::QObject;

  [[nodiscard]] virtual EngineSummary summary() const = 0;

 Q_SIGNALS:
  void changed();
};

}  // namespace orvex
