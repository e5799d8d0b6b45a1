#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <chrono>

namespace orvex {

/// Runs the event loop until `condition` holds. Returns whether it did before the deadline.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition condition,
                             std::chrono::milliseconds deadline = std::chrono::seconds(10)) {
  const QDeadlineTimer timer(deadline);
  while (!condition()) {
    if (timer.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QThread::msleep(1);
  }
  return true;
}

}  // namespace orvex
