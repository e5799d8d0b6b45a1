#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace orvex {

/// What the vendor says of the newest release. Only `version`, `downloadURL`, `notesURL`,
/// `publishedAt` and `mandatory` are acted upon.
struct ReleaseManifest {
  std::optional<std::int64_t> schemaVersion;
  QString productId;
  std::optional<QString> platform;
  std::optional<QString> channel;
  QString version;
  std::optional<std::int64_t> build;
  std::optional<QString> minimumFinalCutVersion;
  std::optional<QString> minimumMacOSVersion;
  QString downloadURL;
  std::optional<QString> notesURL;
  std::optional<QString> sha256;
  std::optional<bool> mandatory;
  /// As the manifest has it; never read as a date.
  std::optional<QString> publishedAt;

  /// Reads the JSON document. Throws `JsonError`.
  [[nodiscard]] static ReleaseManifest decode(const QByteArray& json);
  [[nodiscard]] QByteArray encode() const;

  friend bool operator==(const ReleaseManifest&, const ReleaseManifest&) = default;
};

}  // namespace orvex
