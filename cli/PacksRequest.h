#pragma once

#include <QStringList>

#include <expected>

namespace orvex {

/// What `orvex packs` is asked to do.
struct PacksRequest {
  enum class Verb { List, Installed, Install, Uninstall };

  Verb verb = Verb::List;
  /// Of the pack to install or remove.
  QString id{};
  bool json = false;

  /// Reads the arguments after "packs"; the error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<PacksRequest, QString> parse(const QStringList& arguments);
  /// What `parse` reads.
  [[nodiscard]] static QString usage();
};

}  // namespace orvex
