#pragma once

#include "speed/SpeedCurveEditing.h"
#include "speed/SpeedCurvePreset.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

// What QML knows of the speed curve. The core itself does not know QML.
namespace orvex {

struct SpeedCurveEditingForeign {
  Q_GADGET
  QML_FOREIGN(orvex::SpeedCurveEditing)
  QML_NAMED_ELEMENT(SpeedCurveEditing)
};

struct SpeedCurvePresetForeign {
  Q_GADGET
  QML_FOREIGN(orvex::SpeedCurvePreset)
  QML_VALUE_TYPE(speedCurvePreset)
};

struct SpeedCurvePresetListForeign {
  Q_GADGET
  QML_FOREIGN(QList<orvex::SpeedCurvePreset>)
  QML_ANONYMOUS
  QML_SEQUENTIAL_CONTAINER(orvex::SpeedCurvePreset)
};

/// The presets, for QML.
class SpeedCurvePresets final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  /// In the order of their cards.
  Q_PROPERTY(QList<orvex::SpeedCurvePreset> all READ all CONSTANT FINAL)

 public:
  using QObject::QObject;

  [[nodiscard]] static QList<SpeedCurvePreset> all() { return SpeedCurvePreset::all(); }
};

}  // namespace orvex
