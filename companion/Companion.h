#pragma once

#include "platform/hosts/HostChoice.h"

#include <QString>

#include <expected>
#include <functional>
#include <memory>
#include <optional>

namespace orvex {

struct CompanionRequest;
class MpvRetime;
class PanelEndpoint;

/// Performs requests on the panel of the session and on the host in use. Main thread only.
class Companion {
 public:
  /// What was done, or why it was not: a sentence in Turkish either way.
  using Done = std::function<void(std::expected<QString, QString>)>;

  /// `panel` outlives this. Without a `host` the panel is asked which one is in use.
  Companion(PanelEndpoint& panel, std::optional<HostChoice> host);
  ~Companion();
  Companion(const Companion&) = delete;
  Companion& operator=(const Companion&) = delete;

  /// Performs `request` and calls `done` once, possibly before it returns and within a few seconds.
  /// One request at a time.
  void perform(const CompanionRequest& request, Done done);

 private:
  [[nodiscard]] std::expected<QString, QString> focusPanel();
  [[nodiscard]] std::expected<HostChoice, QString> hostInUse();
  [[nodiscard]] std::expected<QString, QString> performOnBuiltInHost(const QString& action);

  PanelEndpoint& panel_;
  const std::optional<HostChoice> host_;
  std::unique_ptr<MpvRetime> retime_;
};

}  // namespace orvex
