#pragma once

#include "base/DescribedError.h"

namespace orvex {

/// No answer came that could be taken.
class TransportError final : public DescribedError {
 public:
  enum class Kind {
    /// No name, no network, nobody there.
    Unreachable,
    /// It does not hold for this server now, or cannot be checked.
    Certificate,
    /// Nothing came in time, or too little.
    TimedOut,
    /// An address that is not https, given or redirected to, or one redirect too many.
    Refused,
    TooLarge,
    /// The connection broke before the answer was whole.
    Broken,
    /// The server speaks something else.
    NotHttp
  };

  TransportError(Kind kind, QString description)
      : DescribedError(std::move(description)), kind_(kind) {}

  [[nodiscard]] Kind kind() const noexcept { return kind_; }

 private:
  Kind kind_;
};

}  // namespace orvex
