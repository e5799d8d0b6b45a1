#pragma once

#include "platform/hosts/BuiltInHost.h"

#include <QtQml/qqml.h>

namespace orvex {

/// The built-in host, for the strip that shows it.
struct BuiltInHostForeign {
  Q_GADGET
  QML_FOREIGN(orvex::BuiltInHost)
  QML_NAMED_ELEMENT(BuiltInHost)
  QML_UNCREATABLE("The runtime makes the host.")
};

}  // namespace orvex
