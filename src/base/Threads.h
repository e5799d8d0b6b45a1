#pragma once

#include <functional>

namespace orvex {

/// How many threads blocking work over many files is shared out to: 1 to 4, by the processors there
/// are. More would only queue up before the disk.
[[nodiscard]] int workerCount() noexcept;

/// Runs `work` on `workerCount()` threads at once, the calling one among them, and returns when all
/// have ended. The first exception of any of them is thrown on.
void onWorkers(const std::function<void()>& work);

}  // namespace orvex
