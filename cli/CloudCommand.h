#pragma once

#include "Command.h"

namespace orvex {

/// `orvex cloud`: publishes content packs and serves what is published.
[[nodiscard]] Command cloudCommand();

}  // namespace orvex
