#include "HostConnection.h"

#include "platform/hosts/MpvHost.h"

#include <chrono>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// Longer than a player may take to report itself.
constexpr auto kConnectDeadline = MpvHost::kReportDeadline + 500ms;

}  // namespace

HostConnection::HostConnection(const HostChoice& choice)
    // Only a player may still be on its way.
    : mayBeOnItsWay_(choice.kind == HostChoice::Kind::Mpv),
      runtime_(makeHostRuntime(choice)),
      platform_(makePlatform()),
      adapter_(state_, *runtime_, platform_->workspace(), log_) {
  deadline_.setSingleShot(true);
  connect(&deadline_, &QTimer::timeout, this, &HostConnection::connectHost);
}

void HostConnection::start(std::function<void()> ready) {
  ready_ = std::move(ready);
  connect(runtime_.get(), &HostRuntime::hostSingletonChanged, this, &HostConnection::connectHost);
  if (mayBeOnItsWay_ && !runtime_->hostSingleton())
    deadline_.start(kConnectDeadline);
  else
    connectHost();
}

void HostConnection::stop() {
  deadline_.stop();
  runtime_->disconnect(this);
  ready_ = nullptr;
}

void HostConnection::connectHost() {
  deadline_.stop();
  adapter_.connect();
  // A copy, which may stop this.
  if (const auto ready = ready_) ready();
}

}  // namespace orvex
