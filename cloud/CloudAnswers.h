#pragma once

#include "base/Directory.h"
#include "cloud/FileAnswer.h"
#include "cloud/PublishedFile.h"

#include <optional>
#include <utility>

namespace orvex {

class RequestStore;

/// What a client asked for, whole.
struct CloudExchange {
  QByteArray method;
  /// The path of the address, percent-encoded, without the query.
  QByteArray path;
  QByteArray contentType;
  FileConditions conditions;
  QByteArray body;
  /// More came than a request may be long; `body` is not it.
  bool bodyTooLong = false;
};

/// What it is answered with.
struct CloudAnswer {
  int status = 200;
  QList<std::pair<const char*, QByteArray>> headers{};
  /// The body, unless `file` holds one.
  QByteArray body{};
  /// The file that `offset` and `bytes` are a part of.
  std::optional<PublishedFile> file{};
  qint64 offset = 0;
  qint64 bytes = 0;
};

/// The longest request that is taken, in bytes.
inline constexpr qint64 kMaximumRequest = 64 * 1024;

/// Answers any exchange: what is sent to the request centre is taken, everything else is a file.
/// Never throws; any thread.
[[nodiscard]] CloudAnswer answer(const CloudExchange& exchange, const Directory& published,
                                 RequestStore& requests);

}  // namespace orvex
