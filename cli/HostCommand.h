#pragma once

#include "Command.h"

namespace orvex {

/// `orvex host`: shows the host named by the environment variable `ORVEX_HOST`, moves its playhead,
/// sends it timeline commands.
[[nodiscard]] Command hostCommand();

}  // namespace orvex
