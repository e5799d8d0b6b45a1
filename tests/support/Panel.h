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
struct CountingObserver final : FCPXTimelineObserver {
  void activeSequenceChanged() override { ++sequences; }
  void playheadTimeChanged() override { ++playheads; }
  void sequenceTimeRangeChanged() override { ++ranges; }

  [[nodiscard]] int all() const { return sequences + playheads + ranges; }

  int sequences = 0;
  int playheads = 0;
  int ranges = 0;
};

/// The panel's side of a host: adapter and state, connected whenever the host changes.
struct Panel final : HostState, RecordedDesktop {
  explicit Panel(HostRuntime& runtime) : adapter(state, runtime, *this, *this) {
    QObject::connect(&runtime, &HostRuntime::hostSingletonChanged, &adapter,
                     [this] { adapter.connect(); });
    if (runtime.hostSingleton()) adapter.connect();
  }

  /// Waits until a sequence is there.
  [[nodiscard]] bool ready() {
    return waitUntil([this] { return snapshot.sequenceAvailable && snapshot.connected; });
  }

  [[nodiscard]] const HostSnapshot& host() const override { return snapshot; }
  void setHost(const HostSnapshot& newSnapshot) override { snapshot = newSnapshot; }
  void showHostNotice(const QString& message, Notice kind) override {
    notices.append(QLatin1String(kind == Notice::Error ? "error: " : "info: ") + message);
  }

  // Owns nothing: this is the state.
  const std::shared_ptr<HostState> state{this, [](HostState*) {}};
  HostSnapshot snapshot;
  QStringList notices;
  FinalCutHostAdapter adapter;
};

}  // namespace orvex
