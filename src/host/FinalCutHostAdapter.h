#pragma once

#include "host/HostSnapshot.h"
#include "host/HostState.h"
#include "platform/FCPXHost.h"

#include <QObject>

#include <array>
#include <atomic>
#include <memory>

namespace orvex {

class HostRuntime;
class SystemLog;
class Workspace;

/// Connects the panel to its host: turns what the host reports into `HostSnapshot`s, moves the
/// playhead and sends timeline commands to the companion application. Main thread only, but for the
/// three observer callbacks.
class FinalCutHostAdapter final : public QObject, public FCPXTimelineObserver {
  Q_OBJECT

 public:
  /// `state` is not kept alive: once it is gone, what would have been written to it is dropped.
  FinalCutHostAdapter(std::weak_ptr<HostState> state, HostRuntime& runtime, Workspace& workspace,
                      SystemLog& log);
  ~FinalCutHostAdapter() override;

  /// Takes the host and starts observing its timeline; without a host, says so.
  void connect();
  /// Stops observing and lets the host go. The last snapshot stays.
  void disconnect();
  /// Reads the host and publishes a new snapshot. `reason` is for the log.
  Q_INVOKABLE void refresh(const QString& reason);

  Q_INVOKABLE void moveToStart();
  /// The very end of the sequence, not its last frame.
  Q_INVOKABLE void moveToEnd();
  Q_INVOKABLE void moveBy(double seconds);
  Q_INVOKABLE void moveByFrames(qint64 count);
  /// Moves to `seconds`, clamped into the sequence.
  void movePlayhead(double seconds);
  /// `action` is one of `kTimelineActions`.
  Q_INVOKABLE void performTimelineAction(const QString& action);

  // Any thread. A callback whose refresh is still waiting for the main thread adds nothing to it,
  // so a flood of them costs one refresh each time the main thread comes round.
  void activeSequenceChanged() override;
  void playheadTimeChanged() override;
  void sequenceTimeRangeChanged() override;

 private:
  enum Callback : std::size_t { ActiveSequence, PlayheadTime, SequenceTimeRange, CallbackCount };

  void refreshLater(Callback callback);
  void stopObserving();
  void publish(const HostSnapshot& snapshot);
  [[nodiscard]] HostSnapshot snapshot() const;
  void notice(const QString& message, HostState::Notice kind);

  std::weak_ptr<HostState> state_;
  HostRuntime& runtime_;
  Workspace& workspace_;
  SystemLog& log_;
  std::shared_ptr<FCPXHost> host_;
  bool observing_ = false;
  std::array<std::atomic<bool>, CallbackCount> waiting_{};
};

}  // namespace orvex
