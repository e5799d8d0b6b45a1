#pragma once

#include "lut/LUTApplyBridge.h"

#include <QtQml/qqml.h>

// What QML knows of the LUT bridge. The core itself does not know QML.
namespace orvex {

struct LUTApplyBridgeForeign {
  Q_GADGET
  QML_FOREIGN(orvex::LUTApplyBridge)
  QML_NAMED_ELEMENT(LUTApplyBridge)
  QML_UNCREATABLE("ColorServices makes them.")
};

}  // namespace orvex
