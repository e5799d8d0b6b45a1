#pragma once

#include "services/TransportError.h"

#include <curl/curl.h>

namespace orvex {

/// What is known of an exchange that failed.
struct TransportFailure {
  CURLcode code = CURLE_OK;
  /// The host that was asked.
  QString host;
  /// The result of checking its certificate, a number of OpenSSL's.
  long verifyResult = 0;
  /// The errno value of the connection, or 0.
  long systemError = 0;
  /// The request was sent and no line of an answer came.
  bool unanswered = false;
};

/// The error that stands for the failure.
[[nodiscard]] TransportError transportError(const TransportFailure& failure);
[[nodiscard]] TransportError tooLarge(const QString& host);
[[nodiscard]] TransportError timedOut(const QString& host);

}  // namespace orvex
