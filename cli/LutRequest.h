#pragma once

#include <QByteArray>
#include <QStringList>

#include <expected>

namespace orvex {

/// What `orvex lut` is asked to do. Absolute paths, raw bytes.
struct LutRequest {
  enum class Verb { Prepare, Apply };

  Verb verb = Verb::Prepare;
  QByteArray source{};
  QByteArray root{};
  /// Empty for the user's own.
  QByteArray library{};
  bool json = false;

  /// Reads the arguments after "lut"; the error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<LutRequest, QString> parse(const QStringList& arguments);
  /// What `parse` reads.
  [[nodiscard]] static QString usage();

  friend bool operator==(const LutRequest&, const LutRequest&) = default;
};

}  // namespace orvex
