#pragma once

#include "services/HttpClient.h"

namespace orvex {

/// A wish of a user, with what is known of the host.
struct FeatureRequest {
  QString title;
  QString description;
  QString module;
  QString hostName;
  QString hostVersion;
  /// Empty when no sequence is open.
  QString sequenceName;
  QString extensionVersion;
};

/// The service did not take the request; its own message where it sent one.
class RequestCenterError final : public DescribedError {
 public:
  static constexpr auto kDomain = "VantreloRequestCenter";

  /// `code` is the status of the answer.
  RequestCenterError(int code, QString description);

  [[nodiscard]] int code() const noexcept { return code_; }

 private:
  int code_;
};

/// Sends requests to the vendor. Keeps nothing between calls; any thread.
class RequestCenterClient final {
 public:
  RequestCenterClient(QUrl endpoint, HttpOptions http);

  /// Sends the request with its texts unchanged and returns the identifier it was given. Blocking,
  /// 20 seconds at most. Throws `RequestCenterError`, `TransportError`, `Stopped`.
  [[nodiscard]] QString send(const FeatureRequest& request, const std::stop_token& stop = {}) const;

 private:
  QUrl endpoint_;
  HttpOptions http_;
};

}  // namespace orvex
