#pragma once

#include "speed/SpeedCurve.h"

#include <QList>
#include <QObject>
#include <QString>

namespace orvex {

/// A named curve.
struct SpeedCurvePreset {
  Q_GADGET
  Q_PROPERTY(QString id MEMBER id CONSTANT FINAL)
  Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)
  Q_PROPERTY(QList<double> curve READ curve CONSTANT FINAL)

 public:
  QString id;
  /// The label on its card.
  QString name;
  SpeedCurve points;

  /// The points as a list.
  [[nodiscard]] QList<double> curve() const {
    return {points.points().begin(), points.points().end()};
  }
  friend bool operator==(const SpeedCurvePreset&, const SpeedCurvePreset&) = default;

  /// The presets in the order of their cards; the first is the default.
  [[nodiscard]] static const QList<SpeedCurvePreset>& all();
};

}  // namespace orvex
