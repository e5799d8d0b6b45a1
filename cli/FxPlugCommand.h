#pragma once

#include "Command.h"

namespace orvex {

/// `orvex fxplug`: lists the plug-in bundles of a folder.
[[nodiscard]] Command fxPlugCommand();

}  // namespace orvex
