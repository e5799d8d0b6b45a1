#include "base/Gate.h"

namespace orvex {

bool Gate::wait(const std::stop_token& stop, std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex_);
  return opened_.wait_for(lock, stop, patience, [this] { return open_; });
}

void Gate::open() {
  const std::scoped_lock lock(mutex_);
  open_ = true;
  opened_.notify_all();
}

}  // namespace orvex
