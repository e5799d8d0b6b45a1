#pragma once

#include <QByteArray>

namespace orvex {

/// What a request for a file says of the copy that the client has and of the part that it wants;
/// the header fields as they came, empty where there were none.
struct FileConditions {
  QByteArray ifNoneMatch{};
  QByteArray ifModifiedSince{};
  QByteArray ifRange{};
  QByteArray range{};
};

/// What a file is answered with: 200, 206, 304 or 416, and for the first two which bytes.
struct FileAnswer {
  int status = 200;
  qint64 offset = 0;
  qint64 bytes = 0;

  friend bool operator==(const FileAnswer&, const FileAnswer&) = default;
};

/// Decides on a GET or HEAD of a file of `bytes` bytes. `modified` is in seconds since 1970. What
/// is not well formed, and more than one range, counts as not said.
[[nodiscard]] FileAnswer answerFor(const FileConditions& conditions, const QByteArray& entityTag,
                                   qint64 modified, qint64 bytes);

/// `seconds` since 1970 as HTTP writes moments.
[[nodiscard]] QByteArray httpDate(qint64 seconds);

}  // namespace orvex
