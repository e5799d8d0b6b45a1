#include "speed/SpeedCurvePreset.h"

namespace orvex {

const QList<SpeedCurvePreset>& SpeedCurvePreset::all() {
  static const QList<SpeedCurvePreset> presets{
      {QStringLiteral("smooth"), QStringLiteral("Smooth"), {0.2, 0.2, 0.8, 0.8}},
      {QStringLiteral("fast-out"), QStringLiteral("Fast Out"), {0.1, 0.72, 0.28, 1.0}},
      {QStringLiteral("fast-in"), QStringLiteral("Fast In"), {0.72, 0.0, 0.9, 0.28}},
      {QStringLiteral("cinematic"), QStringLiteral("Cinematic"), {0.16, 1.0, 0.3, 1.0}},
      {QStringLiteral("linear"), QStringLiteral("Linear"), {0.0, 0.0, 1.0, 1.0}},
      {QStringLiteral("luxury"), QStringLiteral("Luxury"), {0.65, 0.0, 0.18, 1.0}},
  };
  return presets;
}

}  // namespace orvex
