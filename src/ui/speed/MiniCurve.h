#pragma once

#include "ui/speed/CurveItem.h"

namespace orvex {

/// The small drawing of a curve on a preset's card. The end points stand 3 points inside the edges,
/// the control points are mapped over the whole size: steep curves keep their character that way.
class MiniCurve : public orvex::CurveItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  using CurveItem::CurveItem;

  void paint(QPainter* painter) override;
};

}  // namespace orvex
