#pragma once

#include "Command.h"

namespace orvex {

/// `orvex release`: says which release is the newest.
[[nodiscard]] Command releaseCommand();

}  // namespace orvex
