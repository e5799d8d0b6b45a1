#include "engines/FolderBookmarkStore.h"

#include "platform/FolderAccess.h"
#include "platform/SystemLog.h"

#include <QPointer>
#include <QSettings>

namespace orvex {

FolderBookmarkStore::FolderBookmarkStore(FolderAccess& access, QSettings& settings, SystemLog& log)
    : access_(access), settings_(settings), log_(log) {}

void FolderBookmarkStore::chooseDirectory(const QString& title, const QString& key,
                                          std::function<void(std::optional<QUrl>)> chosen) {
  access_.chooseFolder(
      title, QStringLiteral("Seç"),
      [self = QPointer(this), key, chosen = std::move(chosen)](const std::optional<QUrl>& folder) {
        if (!self) return;
        if (folder) self->keepDirectory(*folder, key);
        chosen(folder);
      });
}

void FolderBookmarkStore::keepDirectory(const QUrl& folder, const QString& key) {
  if (const auto grant = access_.makeGrant(folder))
    settings_.setValue(key, *grant);
  else
    log_.line(QStringLiteral("[Vantrelo Orvex] bookmark write error ") + grant.error());
}

std::optional<QUrl> FolderBookmarkStore::restoreDirectory(const QString& key) {
  const QVariant stored = settings_.value(key);
  if (stored.typeId() != QMetaType::QByteArray) return std::nullopt;
  const auto fail = [this](const QString& reason) {
    log_.line(QStringLiteral("[Vantrelo Orvex] bookmark resolve error ") + reason);
    return std::nullopt;
  };
  const auto resolved = access_.resolveGrant(stored.toByteArray());
  if (!resolved) return fail(resolved.error());
  if (resolved->stale) {
    const auto fresh = access_.makeGrant(resolved->url);
    if (!fresh) return fail(fresh.error());
    settings_.setValue(key, *fresh);
  }
  return resolved->url;
}

}  // namespace orvex
