#pragma once

#include "platform/FCPXHost.h"

#include <QElapsedTimer>
#include <QList>
#include <QTimer>

#include <chrono>

namespace orvex {

/// The observers of a timeline, told of its changes no more than 60 times a second however many
/// there are. No timer runs while nothing changes. Main thread only.
class TimelineObservers {
 public:
  enum Change : unsigned { ActiveSequence = 1, TimeRange = 2, Playhead = 4 };

  /// The least time between two callbacks.
  static constexpr std::chrono::milliseconds kInterval{17};

  TimelineObservers();

  /// May be called from a callback, as may `remove`.
  void add(FCPXTimelineObserver* observer);
  void remove(FCPXTimelineObserver* observer);

  /// Each interval tells of the strongest change waiting: a new sequence before a new range before
  /// the playhead. A new sequence takes its range with it; a playhead change is always told.
  void changed(Change change);
  /// Forgets a playhead change that was not told yet.
  void withdrawPlayhead() noexcept { waiting_ &= ~Playhead; }

 private:
  void tell();
  void schedule();

  QList<FCPXTimelineObserver*> observers_;
  unsigned waiting_ = 0;
  QElapsedTimer sinceLast_;
  QTimer timer_;
};

}  // namespace orvex
