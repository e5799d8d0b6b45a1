#pragma once

#include "Command.h"

namespace orvex {

/// `orvex luts`: lists the LUT files of a folder.
[[nodiscard]] Command lutsCommand();

}  // namespace orvex
