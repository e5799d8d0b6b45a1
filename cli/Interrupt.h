#pragma once

#include <stop_token>
#include <thread>

namespace orvex {

/// While it lives, the first interrupt or termination signal requests a stop, so that what was
/// begun can be undone; the second one ends the program. Make it before any other thread.
class Interrupt {
 public:
  Interrupt();
  ~Interrupt();
  Interrupt(const Interrupt&) = delete;
  Interrupt& operator=(const Interrupt&) = delete;

  [[nodiscard]] std::stop_token token() const { return source_.get_token(); }

 private:
  std::stop_source source_;
  std::jthread thread_;
};

}  // namespace orvex
