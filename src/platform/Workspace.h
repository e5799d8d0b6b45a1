#pragma once

class QUrl;

namespace orvex {

/// What the desktop does for the panel.
class Workspace {
 public:
  virtual ~Workspace() = default;

  /// Hands `url` to the application registered for its scheme. Returns whether the hand-over
  /// worked, not what came of it; does not wait for the application.
  [[nodiscard]] virtual bool open(const QUrl& url) = 0;
};

}  // namespace orvex
