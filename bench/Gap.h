#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>

/// The longest time between two ticks of a timer of 4 ms in this thread's event loop since it was
/// made: what a person waits at most until the window answers. Milliseconds.
class Gap {
 public:
  Gap() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
    // The second figure is how long the thread was ready to run and others ran, of any program.
    std::ignore = waits_.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    waited_ = waited();
    timer_.start(4);
    since_.start();
  }

  [[nodiscard]] double longest() {
    tick();
    return longest_;
  }
  /// The same without the time in which other threads, this program's among them, had the
  /// processor.
  [[nodiscard]] double own() {
    tick();
    return own_;
  }

 private:
  double waited() {
    waits_.seek(0);
    return waits_.read(100).split(' ').value(1).toDouble() / 1e6;
  }
  void tick() {
    const double gap = static_cast<double>(since_.nsecsElapsed()) / 1e6;
    since_.start();
    const double before = std::exchange(waited_, waited());
    longest_ = std::max(longest_, gap);
    own_ = std::max(own_, gap - (waited_ - before));
  }

  QFile waits_{QStringLiteral("/proc/thread-self/schedstat")};
  QTimer timer_;
  QElapsedTimer since_;
  double waited_ = 0;
  double longest_ = 0;
  double own_ = 0;
};
