#pragma once

#include "speed/SpeedCurve.h"

#include <QList>
#include <QString>

namespace orvex {

/// A named curve.
struct SpeedCurvePreset {
  QString id;
  /// The label on its card.
  QString name;
  SpeedCurve points;

  /// The presets in the order of their cards; the first is the default.
  [[nodiscard]] static const QList<SpeedCurvePreset>& all();
};

}  // namespace orvex
