#pragma once

#include <QString>

namespace orvex {

/// What a running panel does for the companion. The panel implements it; the companion talks to one
/// that carries each call across the session (`Platform::remotePanel`).
class PanelEndpoint {
 public:
  virtual ~PanelEndpoint() = default;

  /// Brings the panel's window to the front. False when no panel runs.
  virtual bool focusPanel() = 0;
  /// The host in use, written as `HostChoice` reads it; empty when no panel runs.
  [[nodiscard]] virtual QString hostInUse() = 0;
  /// Performs a timeline action on the panel's own built-in host. False when it has none, does not
  /// know the action, or no panel runs.
  virtual bool performOnBuiltInHost(const QString& action) = 0;
  /// Puts the LUT called `name` on the clip under the playhead of the panel's own built-in host.
  /// The clip's name; empty when it has no such host, or no panel runs.
  virtual QString applyLUTOnBuiltInHost(const QString& name) = 0;
};

}  // namespace orvex
