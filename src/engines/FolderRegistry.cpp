#include "engines/FolderRegistry.h"

#include "base/FileName.h"
#include "base/FileUrl.h"
#include "engines/FolderBookmarkStore.h"
#include "platform/FolderAccess.h"

#include <QPointer>

namespace orvex {

FolderRegistry::FolderRegistry(FolderBookmarkStore& bookmarks, Engine engine, QObject* parent)
    : EngineRegistry(parent), bookmarks_(bookmarks), engine_(std::move(engine)) {}

void FolderRegistry::restore() {
  bookmarks_.restoreDirectory(engine_.bookmarkKey, granting_,
                              [this](const std::optional<QUrl>& folder) {
                                if (folder) return setRoot(*folder);
                                finish(EngineHealth::NeedsAccess);
                              });
}

void FolderRegistry::chooseFolder() {
  if (std::exchange(choosing_, true)) return;
  bookmarks_.chooseDirectory(engine_.chooserTitle, rootUrlOrEmpty(),
                             [self = QPointer(this)](const std::optional<QUrl>& folder) {
                               if (!self) return;
                               self->choosing_ = false;
                               if (!folder) return;
                               self->dropping_.cancel();
                               self->bookmarks_.keepDirectory(
                                   *folder, self->engine_.bookmarkKey, self->granting_,
                                   [self, folder](const auto&) { self->setRoot(*folder); });
                               Q_EMIT self->scanningChanged();
                             });
}

void FolderRegistry::useFolder(const QUrl& folder) {
  const QByteArray path = withoutEndSlashes(filePath(folder));
  const QUrl root = path.isEmpty() ? folder : fileUrl(path);
  bookmarks_.keepDirectory(root, engine_.bookmarkKey, dropping_, [this, root](const auto& kept) {
    if (!kept) return Q_EMIT refused(kept.error());
    granting_.cancel();
    setRoot(root);
  });
}

void FolderRegistry::setRoot(const QUrl& folder) {
  rootURL_ = folder;
  scan();
  Q_EMIT changed();
}

void FolderRegistry::scan() {
  if (!rootURL_) return;
  progress_ = {};
  beginScan(filePath(*rootURL_));
  Q_EMIT scanningChanged();
  Q_EMIT scanProgressChanged();
}

EngineSummary FolderRegistry::summary() const {
  QString detail = engine_.accessPrompt;
  if (rootURL_) {
    detail = fileText(*rootURL_);
    if (detail.isEmpty()) detail = QStringLiteral("—");
  }
  return {health_, engine_.title, detail, itemCount()};
}

std::shared_ptr<void> FolderRegistry::openAccess() const {
  return bookmarks_.access().use(*rootURL_);
}

void FolderRegistry::succeed() {
  lastError_.reset();
  finish(itemCount() > 0 ? EngineHealth::Ready : EngineHealth::Empty);
}

void FolderRegistry::fail(const std::exception_ptr& failure) {
  clearItems();
  lastError_ = descriptionOf(failure);
  finish(EngineHealth::Error);
}

void FolderRegistry::finish(EngineHealth health) {
  health_ = health;
  Q_EMIT changed();
  Q_EMIT scanningChanged();
}

void FolderRegistry::setProgress(Progress progress) {
  progress_ = progress;
  Q_EMIT scanProgressChanged();
}

}  // namespace orvex
