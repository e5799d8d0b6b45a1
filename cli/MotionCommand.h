#pragma once

#include "Command.h"

namespace orvex {

/// `orvex motion`: lists the Motion templates of a folder.
[[nodiscard]] Command motionCommand();

}  // namespace orvex
