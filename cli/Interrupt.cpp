#include "Interrupt.h"

#include <csignal>
#include <ctime>

namespace orvex {
namespace {

constexpr timespec kTick{.tv_sec = 0, .tv_nsec = 100'000'000};

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, number);
  return signals;
}

}  // namespace

// Signals that all threads block wait for the one that asks for them, where, unlike in a handler,
// anything may be done.
Interrupt::Interrupt() {
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  thread_ = std::jthread([this, signals](const std::stop_token& end) {
    while (!end.stop_requested()) {
      if (sigtimedwait(&signals, nullptr, &kTick) < 0) continue;
      // The next one comes to this thread, which all others leave it to, and ends the program.
      pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
      source_.request_stop();
      while (!end.stop_requested()) ::nanosleep(&kTick, nullptr);
    }
  });
}

Interrupt::~Interrupt() {
  thread_ = {};
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace orvex
