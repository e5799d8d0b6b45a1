#include "Interrupt.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>

namespace orvex {

Interrupt::Interrupt(std::function<void()> asked, QObject* parent) : QObject(parent) {
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGINT);
  sigaddset(&ends, SIGTERM);
  // Threads that are started later take this over, so that the signals reach the descriptor alone.
  ::pthread_sigmask(SIG_BLOCK, &ends, nullptr);
  signals_ = FileDescriptor(::signalfd(-1, &ends, SFD_CLOEXEC | SFD_NONBLOCK));
  auto* notifier = new QSocketNotifier(signals_.get(), QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, asked = std::move(asked)] {
    signalfd_siginfo taken{};
    if (::read(signals_.get(), &taken, sizeof taken) == sizeof taken) asked();
  });
}

}  // namespace orvex
