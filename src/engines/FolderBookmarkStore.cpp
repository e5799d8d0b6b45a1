#include "engines/FolderBookmarkStore.h"

#include "base/Background.h"
#include "base/DescribedError.h"
#include "platform/FolderAccess.h"
#include "platform/SystemLog.h"

#include <QSettings>

namespace orvex {
namespace {

struct Restored {
  QUrl folder;
  // In place of a stale grant.
  std::optional<QByteArray> fresh;
};

}  // namespace

FolderBookmarkStore::FolderBookmarkStore(FolderAccess& access, QSettings& settings, SystemLog& log)
    : access_(access), settings_(settings), log_(log) {}

void FolderBookmarkStore::chooseDirectory(const QString& title, const QUrl& start,
                                          std::function<void(std::optional<QUrl>)> chosen) {
  access_.chooseFolder(title, QStringLiteral("Seç"), start, std::move(chosen));
}

void FolderBookmarkStore::keepDirectory(const QUrl& folder, const QString& key,
                                        Background& background,
                                        std::function<void(std::expected<void, QString>)> kept) {
  background.run(
      [grants = access_.grants(), folder](const WorkControl&) { return grants->makeGrant(folder); },
      [this, key, kept = std::move(kept)](std::expected<QByteArray, std::exception_ptr> grant) {
        if (grant) {
          settings_.setValue(key, *grant);
          return kept({});
        }
        const QString reason = descriptionOf(grant.error());
        log_.line(QStringLiteral("[Vantrelo Orvex] bookmark write error ") + reason);
        kept(std::unexpected(reason));
      });
}

void FolderBookmarkStore::restoreDirectory(const QString& key, Background& background,
                                           std::function<void(std::optional<QUrl>)> restored) {
  const QVariant stored = settings_.value(key);
  if (stored.typeId() != QMetaType::QByteArray) return restored(std::nullopt);
  background.run(
      [grants = access_.grants(), bytes = stored.toByteArray()](const WorkControl&) {
        const FolderGrants::Resolved resolved = grants->resolveGrant(bytes);
        return Restored{resolved.url, resolved.stale
                                          ? std::optional(grants->makeGrant(resolved.url))
                                          : std::nullopt};
      },
      [this, key,
       restored = std::move(restored)](const std::expected<Restored, std::exception_ptr>& found) {
        if (!found) {
          log_.line(QStringLiteral("[Vantrelo Orvex] bookmark resolve error ") +
                    descriptionOf(found.error()));
          return restored(std::nullopt);
        }
        if (found->fresh) settings_.setValue(key, *found->fresh);
        restored(found->folder);
      });
}

}  // namespace orvex
