#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace orvex {

/// Holds work on other threads back until something that matters more is done; once open it stays
/// open. Any thread.
class Gate {
 public:
  /// Blocks until the gate is open, a stop is requested or `patience` has passed: what is waited
  /// for may never come, and the work is to be done all the same. Returns whether it is open.
  bool wait(const std::stop_token& stop, std::chrono::milliseconds patience);
  void open();

 private:
  std::mutex mutex_;
  std::condition_variable_any opened_;
  bool open_ = false;
};

}  // namespace orvex
