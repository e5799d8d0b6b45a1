#pragma once

#include "Scenario.h"

#include <vector>

namespace orvex {

[[nodiscard]] std::vector<Scenario> lutScenarios();

}  // namespace orvex
