#pragma once

#include "base/Directory.h"

#include <QString>

#include <expected>
#include <optional>

namespace orvex {

/// A request to apply a LUT that this process alone has taken.
struct PendingLUT {
  /// Of the managed copy; raw bytes, as the panel wrote it.
  QByteArray path;
  /// In the library.
  QByteArray replyName;
};

/// The requests that panels left in a managed library. They come from any program of the user's, so
/// nothing is read or written outside the library for them. What fails throws `FileError`.
class LUTRequests {
 public:
  /// `library` is open and outlives this.
  explicit LUTRequests(const Directory& library);

  /// Takes a request: of all processes that ask for it, one gets it. Nothing when none is left. The
  /// error, in Turkish, says why something that was left could not be understood; it is gone then.
  [[nodiscard]] std::optional<std::expected<PendingLUT, QString>> take() const;

  /// Answers a request with a sentence in Turkish; whoever looks for the reply finds it whole.
  void reply(const PendingLUT& request, const std::expected<QString, QString>& outcome) const;

 private:
  [[nodiscard]] std::expected<PendingLUT, QString> decode(const QByteArray& bytes) const;

  const Directory& library_;
  Directory requests_;
};

}  // namespace orvex
