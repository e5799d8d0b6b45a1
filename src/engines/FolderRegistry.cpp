#include "engines/FolderRegistry.h"

#include "base/FileUrl.h"
#include "engines/FolderBookmarkStore.h"
#include "platform/FolderAccess.h"

#include <QPointer>

#include <sys/stat.h>

namespace orvex {
namespace {

// Names need not be text.
bool isFolder(const QByteArray& path) {
  struct stat status {};
  return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

FolderRegistry::FolderRegistry(FolderBookmarkStore& bookmarks, Engine engine, QObject* parent)
    : EngineRegistry(parent), bookmarks_(bookmarks), engine_(std::move(engine)) {}

void FolderRegistry::restore() {
  rootURL_ = bookmarks_.restoreDirectory(engine_.bookmarkKey);
  scan();
}

void FolderRegistry::chooseFolder() {
  if (std::exchange(choosing_, true)) return;
  bookmarks_.chooseDirectory(engine_.chooserTitle, engine_.bookmarkKey,
                             [self = QPointer(this)](const std::optional<QUrl>& folder) {
                               if (!self) return;
                               self->choosing_ = false;
                               if (folder) self->setRoot(*folder);
                             });
}

QString FolderRegistry::useFolder(const QUrl& folder) {
  QByteArray path = filePath(folder);
  while (path.size() > 1 && path.endsWith('/')) path.chop(1);
  if (path.isEmpty() || !isFolder(path))
    return QStringLiteral("%1 bir klasör değil. Bir klasör bırak.")
        .arg(path.isEmpty() ? folder.toDisplayString() : fileText(folder));
  const QUrl url = fileUrl(path);
  bookmarks_.keepDirectory(url, engine_.bookmarkKey);
  setRoot(url);
  return {};
}

void FolderRegistry::setRoot(const QUrl& folder) {
  rootURL_ = folder;
  Q_EMIT changed();
  scan();
}

void FolderRegistry::scan() {
  if (!rootURL_) {
    background_.cancel();
    clearItems();
    return finish(EngineHealth::NeedsAccess);
  }
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
  FolderAccess& access = bookmarks_.access();
  if (!access.startAccess(*rootURL_)) return nullptr;
  return {nullptr, [&access, root = *rootURL_](void*) { access.stopAccess(root); }};
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
