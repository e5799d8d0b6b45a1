#pragma once

#include "Command.h"

namespace orvex {

/// `orvex request`: sends a wish to the vendor, with what is known of the host.
[[nodiscard]] Command requestCommand();

}  // namespace orvex
