#pragma once

#include <functional>

namespace orvex {

/// How many threads blocking work over many files is shared out to: 1 to 4, by the processors there
/// are. More would only queue up before the disk.
[[nodiscard]] int workerCount() noexcept;

/// Runs `work` on `workerCount()` threads at once, the calling one among them, and returns when all
/// have ended; on fewer where no more can be had. The first exception of any is thrown on.
void onWorkers(const std::function<void()>& work);

/// From here on this thread, and those that it starts, get the processor when the threads that draw
/// and answer do not want it, or a quarter of it.
void giveWay() noexcept;

}  // namespace orvex
