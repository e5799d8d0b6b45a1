#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvex {

/// What the first lines of a LUT file say of it.
struct LUTHeader {
  std::optional<QString> title{};
  /// "3D <n>" or "1D <n>" with the number as written, or "CUBE" when nothing says so.
  QString dimension = QStringLiteral("CUBE");

  /// Of those that are not empty; what follows is the table. Files are read no further than
  /// `Utf8Reader::kHeaderSize` for them.
  static constexpr int kLines = 80;

  /// Reads the first `kLines` lines that are not empty of a text in UTF-8.
  [[nodiscard]] static LUTHeader parse(const QByteArray& text);

  friend bool operator==(const LUTHeader&, const LUTHeader&) = default;
};

}  // namespace orvex
