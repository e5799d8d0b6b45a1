#pragma once

#include "platform/Workspace.h"

namespace orvex {

/// The desktop's applications as GIO knows them.
class GioWorkspace final : public Workspace {
 public:
  [[nodiscard]] bool open(const QUrl& url) override;
  void launch(const QUrl& application, Launched launched) override;
};

}  // namespace orvex
