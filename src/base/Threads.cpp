#include "base/Threads.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <tuple>
#include <vector>

namespace orvex {

int workerCount() noexcept {
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 4U));
}

void onWorkers(const std::function<void()>& work) {
  std::mutex mutex;
  std::exception_ptr failure;
  const auto guarded = [&] {
    try {
      work();
    } catch (...) {
      const std::scoped_lock lock(mutex);
      if (!failure) failure = std::current_exception();
    }
  };
  {
    std::vector<std::jthread> threads;
    try {
      for (int i = 1; i < workerCount(); ++i) threads.emplace_back(guarded);
    } catch (const std::system_error&) {
      // Then with the threads that there are.
    }
    guarded();
  }
  if (failure) std::rethrow_exception(failure);
}

void giveWay() noexcept {
#ifdef __linux__
  // Of the thread alone here, unlike elsewhere. Five steps are a third of the weight.
  std::ignore = ::setpriority(PRIO_PROCESS, 0, 5);
#endif
}

}  // namespace orvex
