#pragma once

#include "platform/PanelEndpoint.h"

#include <memory>

class QObject;

namespace orvex {

class SessionBus;

/// Offers `panel` on the session's bus as `com.vantrelo.orvex.finalcut.Panel`, until the object
/// that it gives or the bus goes; both `bus` and `panel` outlive that object. Calls arrive on the
/// main thread. While another panel has the name, this one waits for it to go. Null when there is
/// no bus.
[[nodiscard]] std::unique_ptr<QObject> exportPanelOn(SessionBus& bus, PanelEndpoint& panel);

/// The panel that another process offers. A call takes at most one second; one that fails answers
/// as if no panel ran. Any thread.
class RemotePanel final : public PanelEndpoint {
 public:
  /// `bus` outlives this.
  explicit RemotePanel(SessionBus& bus) : bus_(bus) {}

  bool focusPanel() override;
  [[nodiscard]] QString hostInUse() override;
  bool performOnBuiltInHost(const QString& action) override;
  QString applyLUTOnBuiltInHost(const QString& name) override;

 private:
  SessionBus& bus_;
};

}  // namespace orvex
