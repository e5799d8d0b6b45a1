#pragma once

#include <QStringList>

#include <cstdint>
#include <expected>

namespace orvex {

/// What `orvex cloud` is asked to do.
struct CloudRequest {
  enum class Verb { Build, Serve };

  Verb verb = Verb::Build;
  /// The vendor's folder, as written.
  QString folder{};
  /// Of the service that the catalog is for; empty for the panel's own.
  QString baseURL{};
  QString address = QStringLiteral("127.0.0.1");
  std::uint16_t port = 8443;
  /// PEM files; both or none.
  QString certificate{};
  QString key{};
  /// Bytes per second of one transfer, 0 for no limit.
  qint64 rate = 0;
  bool json = false;

  /// Reads the arguments after "cloud"; the error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<CloudRequest, QString> parse(const QStringList& arguments);
  /// What `parse` reads.
  [[nodiscard]] static QString usage();

  friend bool operator==(const CloudRequest&, const CloudRequest&) = default;
};

}  // namespace orvex
