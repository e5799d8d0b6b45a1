#pragma once

#include "base/MediaTime.h"

#include <QString>

#include <optional>

namespace orvex {

/// Told by a timeline what changed. May be called on any thread.
class FCPXTimelineObserver {
 public:
  virtual void activeSequenceChanged() = 0;
  virtual void playheadTimeChanged() = 0;
  virtual void sequenceTimeRangeChanged() = 0;

 protected:
  ~FCPXTimelineObserver() = default;
};

/// The sequence open in a timeline. Any of its times may be invalid when the host does not know it.
struct FCPXSequence {
  QString name;
  MediaTime startTime;
  MediaTime duration;
  MediaTime frameDuration;

  friend bool operator==(const FCPXSequence&, const FCPXSequence&) = default;
};

/// The timeline of a host. Main thread only, except that observers may be called on any.
class FCPXTimeline {
 public:
  virtual ~FCPXTimeline() = default;

  [[nodiscard]] virtual std::optional<FCPXSequence> activeSequence() const = 0;
  /// While a move is under way, the time it moves to.
  [[nodiscard]] virtual MediaTime playheadTime() const = 0;
  [[nodiscard]] virtual MediaTimeRange sequenceTimeRange() const = 0;

  /// `observer` must stay alive until it is removed. Adding it twice is adding it once.
  virtual void addTimelineObserver(FCPXTimelineObserver* observer) = 0;
  virtual void removeTimelineObserver(FCPXTimelineObserver* observer) = 0;

  /// Starts moving the playhead to the frame nearest to `time`. Every move ends with a
  /// `playheadTimeChanged` to the observers once the host has settled, or with none if the host
  /// goes.
  virtual void movePlayheadTo(MediaTime time) = 0;
};

/// An editor or player that the panel sits beside.
class FCPXHost {
 public:
  virtual ~FCPXHost() = default;

  [[nodiscard]] virtual QString name() const = 0;
  [[nodiscard]] virtual QString versionString() const = 0;
  [[nodiscard]] virtual QString bundleIdentifier() const = 0;
  /// Owned by the host; null while it has none.
  [[nodiscard]] virtual FCPXTimeline* timeline() = 0;
};

}  // namespace orvex
