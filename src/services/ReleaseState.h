#pragma once

#include "services/HttpsAddress.h"

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
  Q_PROPERTY(bool hasDownload READ hasDownload)
  Q_PROPERTY(bool hasNotes READ hasNotes)
  Q_PROPERTY(QUrl downloadURL READ downloadPage)
  Q_PROPERTY(QUrl notesURL READ notesPage)
  Q_PROPERTY(QString publishedAt READ publishedText)
  Q_PROPERTY(bool mandatory MEMBER mandatory)
  Q_PROPERTY(QString lastError READ lastErrorText)

 public:
  /// A check is running.
  bool checking = false;
  /// The version of the last manifest fetched, at first the panel's own.
  QString latestVersion;
  bool updateAvailable = false;
  std::optional<QUrl> downloadURL{};
  std::optional<QUrl> notesURL{};
  /// As the manifest has it; never read as a date.
  std::optional<QString> publishedAt{};
  bool mandatory = false;
  std::optional<QString> lastError{};

  /// What a browser may be asked to open: the address where it is one of https, else nothing.
  [[nodiscard]] QUrl downloadPage() const { return webPage(downloadURL); }
  [[nodiscard]] QUrl notesPage() const { return webPage(notesURL); }

  friend bool operator==(const ReleaseState&, const ReleaseState&) = default;

 private:
  [[nodiscard]] static QUrl webPage(const std::optional<QUrl>& url) {
    return url && isHttpsAddress(*url) ? *url : QUrl();
  }
  [[nodiscard]] bool hasDownload() const { return !downloadPage().isEmpty(); }
  [[nodiscard]] bool hasNotes() const { return !notesPage().isEmpty(); }
  [[nodiscard]] QString publishedText() const { return publishedAt.value_or(QString()); }
  [[nodiscard]] QString lastErrorText() const { return lastError.value_or(QString()); }
};

}  // namespace orvex
