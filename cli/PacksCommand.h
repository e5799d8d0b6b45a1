#pragma once

#include "Command.h"

namespace orvex {

/// `orvex packs`: lists, installs and removes content packs.
[[nodiscard]] Command packsCommand();

}  // namespace orvex
