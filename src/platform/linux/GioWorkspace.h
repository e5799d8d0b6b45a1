#pragma once

#include "platform/Workspace.h"

#include <QObject>

namespace orvex {

class SessionBus;

/// The desktop's applications as GIO knows them, and its file manager as the session's bus does.
class GioWorkspace final : public Workspace {
 public:
  /// `bus` outlives this.
  explicit GioWorkspace(SessionBus& bus) : bus_(bus) {}

  [[nodiscard]] bool open(const QUrl& url) override;
  void launch(const QUrl& application, Launched launched) override;
  void reveal(const QUrl& file, Revealed revealed) override;

 private:
  SessionBus& bus_;
  // Owns the requests that are on their way.
  QObject requests_;
};

}  // namespace orvex
