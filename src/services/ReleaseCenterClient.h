#pragma once

#include "services/HttpClient.h"
#include "services/ReleaseManifest.h"

namespace orvex {

/// The release manifest cannot be used.
class ReleaseCenterError final : public DescribedError {
 public:
  enum class Kind { Http, InvalidResponse, InvalidProduct };

  /// `code` is the status of `Http`.
  explicit ReleaseCenterError(Kind kind, int code = 0);

  [[nodiscard]] Kind kind() const noexcept { return kind_; }
  [[nodiscard]] int code() const noexcept { return code_; }

 private:
  Kind kind_;
  int code_;
};

/// Fetches the manifest of the newest release. Keeps nothing between calls; any thread.
class ReleaseCenterClient final {
 public:
  ReleaseCenterClient(QUrl manifestURL, HttpOptions http);

  /// Blocking, 15 seconds at most. Throws `ReleaseCenterError`, `TransportError`, `JsonError`,
  /// `Stopped`.
  [[nodiscard]] ReleaseManifest fetchManifest(const std::stop_token& stop = {}) const;

 private:
  QUrl manifestURL_;
  HttpOptions http_;
};

}  // namespace orvex
