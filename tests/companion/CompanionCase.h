#pragma once

#include "platform/PanelEndpoint.h"
#include "platform/Platform.h"
#include "support/PrivateSession.h"
#include "support/Program.h"

namespace orvex {

/// The companion as a process, on a real bus beside a panel that is the test's, once it is
/// exported.
struct CompanionCase : PrivateSession, protected PanelEndpoint {
  CompanionCase() { qunsetenv("ORVEX_HOST"); }

  bool focusPanel() override {
    calls_.append(QStringLiteral("focus"));
    return true;
  }
  QString hostInUse() override { return host_; }
  bool performOnBuiltInHost(const QString& action) override {
    calls_.append(action);
    return hasBuiltInHost_;
  }
  QString applyLUTOnBuiltInHost(const QString& name) override {
    calls_.append(name);
    return clip_;
  }

  // Runs the companion while the event loop here answers for the panel.
  [[nodiscard]] static ProgramResult run(const QStringList& arguments = {}) {
    return runProgram(QStringLiteral(ORVEX_COMPANION), arguments);
  }

  const std::unique_ptr<Platform> platform_ = makePlatform();
  QString host_;
  bool hasBuiltInHost_ = true;
  QString clip_;
  QStringList calls_;
};

}  // namespace orvex
