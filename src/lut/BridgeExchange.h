#pragma once

#include "base/DescribedError.h"

#include <QUrl>

#include <optional>

namespace orvex {

class BridgeError final : public DescribedError {
 public:
  enum class Kind { HelperMissing, InvalidResponse, RequestWriteFailed };

  explicit BridgeError(Kind kind);

  [[nodiscard]] Kind kind() const noexcept { return kind_; }

 private:
  Kind kind_;
};

/// A request that waits for the helper. Absolute paths, raw bytes.
struct BridgeRequest {
  QByteArray path;
  QByteArray replyPath;
};

/// What the helper answered.
struct BridgeReply {
  bool ok = false;
  QString message{};

  /// Reads the property list of a reply. Throws `BridgeError`, `DescribedError`.
  [[nodiscard]] static BridgeReply decode(const QByteArray& bytes);
};

/// The files that panel and helper leave each other in a managed library. Blocking, any thread.
namespace BridgeExchange {

/// Removes the requests that nobody took and leaves one for the managed copy `copy` in `library`,
/// an absolute path. Throws `BridgeError`, `FileError`, `DescribedError`.
[[nodiscard]] BridgeRequest leaveRequest(const QByteArray& library, const QUrl& copy);
/// The reply at `path`, which is removed; nothing while there is none. Throws `BridgeError`,
/// `FileError`, `DescribedError`.
[[nodiscard]] std::optional<BridgeReply> takeReply(const QByteArray& path);
/// The application that the extension at `extensionBundle` (an absolute path) lies in; nothing when
/// it lies in none or in another one.
[[nodiscard]] std::optional<QUrl> helperApplication(const QString& extensionBundle);

}  // namespace BridgeExchange
}  // namespace orvex
