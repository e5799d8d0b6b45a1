#pragma once

#include "ui/speed/CurveItem.h"

namespace orvex {

/// The speed that a ramp results in, over time: what the curve does to the clip. The line at 100 %
/// is the original speed.
class SpeedProfile : public orvex::CurveItem {
  Q_OBJECT
  QML_ELEMENT
  /// "%20": the smallest and the largest speed, in whole per cent; "%∞" where the curve is
  /// vertical.
  Q_PROPERTY(QString minimumText READ minimumText NOTIFY curveChanged FINAL)
  Q_PROPERTY(QString maximumText READ maximumText NOTIFY curveChanged FINAL)

 public:
  using CurveItem::CurveItem;

  [[nodiscard]] QString minimumText() const;
  [[nodiscard]] QString maximumText() const;
  void paint(QPainter* painter) override;
};

}  // namespace orvex
