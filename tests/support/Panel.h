#pragma once

#include "host/FinalCutHostAdapter.h"
#include "platform/FCPXHost.h"
#include "platform/HostRuntime.h"
#include "support/RecordedDesktop.h"
#include "support/Wait.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QUrl>

namespace orvex {

/// Counts what a timeline tells.
class CountingObserver final : public FCPXTimelineObserver {
 public:
  void activeSequenceChanged() override { ++sequences; }
  void playheadTimeChanged() override { ++playheads; }
  void sequenceTimeRangeChanged() override { ++ranges; }

  [[nodiscard]] int all() const { return sequences + playheads + ranges; }

  int sequences = 0;
  int playheads = 0;
  int ranges = 0;
};

/// The panel's side of a host: adapter and state, connected whenever the host changes.
class Panel final : public HostState, public RecordedDesktop {
 public:
  explicit Panel(HostRuntime& runtime)
      : state_(this, [](HostState*) {}), adapter(state_, runtime, *this, *this) {
    QObject::connect(&runtime, &HostRuntime::hostSingletonChanged, &adapter,
                     [this] { adapter.connect(); });
    if (runtime.hostSingleton()) adapter.connect();
  }

  /// Takes the state away from the adapter.
  void dropState() { state_.reset(); }

  /// Waits until a sequence is there.
  [[nodiscard]] bool ready() {
    return waitUntil([this] { return snapshot.sequenceAvailable && snapshot.connected; });
  }

  [[nodiscard]] const HostSnapshot& host() const override { return snapshot; }
  void setHost(const HostSnapshot& newSnapshot) override { snapshot = newSnapshot; }
  void showHostNotice(const QString& message, Notice kind) override {
    notices.append(QLatin1String(kind == Notice::Error ? "error: " : "info: ") + message);
  }

 private:
  // Owns nothing: this is the state.
  std::shared_ptr<HostState> state_;

 public:
  HostSnapshot snapshot;
  QStringList notices;
  FinalCutHostAdapter adapter;
};

}  // namespace orvex
