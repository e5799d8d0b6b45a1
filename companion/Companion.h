#pragma once

#include "platform/hosts/HostChoice.h"

#include <QString>

#include <expected>
#include <functional>
#include <memory>
#include <optional>

namespace orvex {

struct CompanionRequest;
class Directory;
class MpvLUT;
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
  /// The same for a LUT: applies the managed copy at `path` in `library`. What fails besides throws
  /// `FileError`.
  void applyLUT(const Directory& library, const QByteArray& path, Done done);

 private:
  [[nodiscard]] std::expected<QString, QString> focusPanel();
  [[nodiscard]] std::expected<HostChoice, QString> hostInUse();
  [[nodiscard]] std::expected<QString, QString> performOnBuiltInHost(const QString& action);
  [[nodiscard]] std::expected<QString, QString> applyOnBuiltInHost(const QString& lut);
  // Why the panel did not do what only one with a built-in host can.
  [[nodiscard]] std::unexpected<QString> noBuiltInHost(const QString& what);

  PanelEndpoint& panel_;
  const std::optional<HostChoice> host_;
  std::unique_ptr<MpvRetime> retime_;
  std::unique_ptr<MpvLUT> lut_;
};

}  // namespace orvex
