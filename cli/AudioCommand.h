#pragma once

#include "Command.h"

namespace orvex {

/// `orvex audio`: lists the audio effects that the system has registered.
[[nodiscard]] Command audioCommand();

}  // namespace orvex
