#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>

namespace orvex {

/// What the panel knows of newer releases of itself.
struct ReleaseState {
  Q_GADGET
  Q_PROPERTY(bool checking MEMBER checking)
  Q_PROPERTY(QString latestVersion MEMBER latestVersion)
  Q_PROPERTY(bool updateAvailable MEMBER updateAvailable)
  Q_PROPERTY(bool mandatory MEMBER mandatory)

 public:
  /// A check is running.
  bool checking = false;
  /// The version of the last manifest fetched, at first the panel's own.
  QString latestVersion;
  bool updateAvailable = false;
  std::optional<QUrl> downloadURL;
  std::optional<QUrl> notesURL;
  /// As the manifest has it; never read as a date.
  std::optional<QString> publishedAt;
  bool mandatory = false;
  std::optional<QString> lastError;

  friend bool operator==(const ReleaseState&, const ReleaseState&) = default;
};

}  // namespace orvex
