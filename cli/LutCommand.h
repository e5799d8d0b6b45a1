#pragma once

#include "Command.h"

namespace orvex {

/// `orvex lut`: makes the managed copy of a LUT, or has the helper apply one.
[[nodiscard]] Command lutCommand();

}  // namespace orvex
