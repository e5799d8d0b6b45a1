#pragma once

#include "NoLog.h"
#include "host/FinalCutHostAdapter.h"
#include "host/HostState.h"
#include "platform/HostRuntime.h"
#include "platform/Platform.h"
#include "platform/hosts/HostChoice.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace orvex {

/// The host of one run of a command, with what its adapter reports of it.
class HostConnection final : public QObject {
 public:
  explicit HostConnection(const HostChoice& choice);

  /// Calls `ready`, possibly before it returns, once the host has been connected to or was waited
  /// for in vain, and again when the host goes away or another comes.
  void start(std::function<void()> ready);
  /// `ready` is not called any more.
  void stop();

  [[nodiscard]] HostRuntime& runtime() { return *runtime_; }
  [[nodiscard]] FinalCutHostAdapter& adapter() { return adapter_; }
  [[nodiscard]] const HostSnapshot& snapshot() const { return state_->host(); }
  /// What the adapter last had to say to the user, and whether that was an error.
  [[nodiscard]] const std::optional<QString>& notice() const { return state_->notice; }
  [[nodiscard]] bool noticeIsError() const { return state_->kind == HostState::Notice::Error; }

 private:
  struct ReportedState final : HostState {
    [[nodiscard]] const HostSnapshot& host() const override { return snapshot; }
    void setHost(const HostSnapshot& newSnapshot) override { snapshot = newSnapshot; }
    void showHostNotice(const QString& message, Notice newKind) override {
      notice = message;
      kind = newKind;
    }

    HostSnapshot snapshot;
    std::optional<QString> notice;
    Notice kind = Notice::Info;
  };

  void connectHost();

  bool mayBeOnItsWay_;
  std::function<void()> ready_;
  NoLog log_;
  std::shared_ptr<ReportedState> state_ = std::make_shared<ReportedState>();
  std::unique_ptr<HostRuntime> runtime_;
  std::unique_ptr<Platform> platform_;
  FinalCutHostAdapter adapter_;
  QTimer deadline_;
};

}  // namespace orvex
