#pragma once

#include "base/Gate.h"

#include <memory>

namespace orvex {

/// When the inventories that a panel begins at its start may read: at once without a gate, else
/// when it opens. They read on as many threads as there are processors, which the window needs for
/// its first frame; with 10,000 items in each library that took half as long again.
using FirstReading = std::shared_ptr<Gate>;

/// Blocks until reading may begin: a second at most, for a window that shows no frame.
inline void awaitFirstReading(const FirstReading& gate, const std::stop_token& stop) {
  if (gate) gate->wait(stop, std::chrono::seconds(1));
}

}  // namespace orvex
