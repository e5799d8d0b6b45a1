#pragma once

#include "base/DescribedError.h"

#include <QByteArrayView>
#include <QUrl>

#include <stop_token>

namespace orvex {

/// Proves that a LUT file is what it claims to be and copies it into the managed library, which is
/// all that the helper is ever given.
namespace CloudLUTPreparation {

/// The source cannot be used, or its copy is not what it should be.
class PreparationError final : public DescribedError {
 public:
  enum class Kind { InvalidSource, UnsupportedLUT, CopyFailed };

  explicit PreparationError(Kind kind);

  [[nodiscard]] Kind kind() const noexcept { return kind_; }

 private:
  Kind kind_;
};

/// The most bytes that a LUT may have.
inline constexpr qsizetype kMaximumBytes = qsizetype{64} * 1024 * 1024;

/// Whether `bytes` are the text of what says that it is a 3D LUT, which is all that `prepare` asks
/// of a file's contents.
[[nodiscard]] bool isThreeDimensional(QByteArrayView bytes);

/// Copies `source`, a `.cube` file with a 3D LUT inside `packRoot`, to
/// `<library>/<SHA-256 of its bytes>/<its name>` and gives back where that is, once the copy is
/// durable and reads as the source did. A copy that is there already and is right is left as it is.
/// Local file URLs all; blocking, from any thread, in any number of processes at once. Throws
/// `PreparationError`, `FileError`, `Stopped`.
[[nodiscard]] QUrl prepare(const QUrl& source, const QUrl& packRoot, const QUrl& library,
                           const std::stop_token& stop = {});

}  // namespace CloudLUTPreparation
}  // namespace orvex
