#pragma once

#include "base/DescribedError.h"

namespace orvex {

/// A pack, its catalog or one of its files cannot be used.
class UniversalPackClientError final : public DescribedError {
 public:
  enum class Kind {
    Http,
    InvalidAsset,
    MissingURL,
    SizeMismatch,
    HashMismatch,
    InvalidResponse,
    InvalidCatalog
  };

  explicit UniversalPackClientError(Kind kind);
  /// `file` is the name of the asset.
  UniversalPackClientError(Kind kind, const QString& file);
  /// An answer with this status.
  explicit UniversalPackClientError(int status);

  [[nodiscard]] Kind kind() const noexcept { return kind_; }

 private:
  Kind kind_;
};

}  // namespace orvex
