#include "base/Directory.h"

#include "base/FileError.h"
#include "base/FileName.h"
#include "base/FolderStream.h"

#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <tuple>
#include <vector>

namespace orvex {
namespace {

FileError failure(const QString& what, const QByteArray& path) {
  return {what, path, errno};
}

bool isDots(QByteArrayView name) {
  return name == "." || name == "..";
}

}  // namespace

Directory Directory::open(const QByteArray& path) {
  FileDescriptor folder(::open(path.constData(), kReadFolder));
  if (!folder) throw failure(QStringLiteral("açılamadı"), path);
  return {std::move(folder), withoutEndSlashes(path)};
}

Directory Directory::make(const QByteArray& written) {
  const QByteArray path = withoutEndSlashes(written);
  try {
    return open(path);
  } catch (const FileError& error) {
    const qsizetype slash = path.lastIndexOf('/');
    if (error.code() != ENOENT || slash < 0) throw;
    const Directory parent = makeAbove(path);
    // Somebody else may have been faster.
    if (::mkdirat(parent.descriptor(), path.constData() + slash + 1, 0777) != 0 && errno != EEXIST)
      throw failure(QStringLiteral("oluşturulamadı"), path);
    parent.sync();
    return open(path);
  }
}

Directory Directory::makeAbove(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return make(slash == 0 ? QByteArray("/") : path.first(slash));
}

QList<QByteArray> Directory::names() const {
  // Opened anew: a listing has a position, which copies of a descriptor share.
  FileDescriptor own(::openat(folder_.get(), ".", kReadFolder));
  const FolderStream listing(own ? ::fdopendir(own.get()) : nullptr);
  if (!listing) throw failure(QStringLiteral("okunamadı"), path_);
  std::ignore = own.release();
  QList<QByteArray> names;
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(listing.get());
    if (entry == nullptr && errno != 0) throw failure(QStringLiteral("okunamadı"), path_);
    if (entry == nullptr) return names;
    if (!isDots(entry->d_name)) names.append(entry->d_name);
  }
}

bool Directory::has(const QByteArray& name) const {
  struct stat status {};
  if (::fstatat(folder_.get(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0) return true;
  if (errno != ENOENT) throw failure(QStringLiteral("okunamadı"), path(name));
  return false;
}

bool Directory::has(const QByteArray& name, const Directory& entry) const {
  struct stat named {};
  struct stat open {};
  return ::fstatat(folder_.get(), name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         ::fstat(entry.descriptor(), &open) == 0 && named.st_dev == open.st_dev &&
         named.st_ino == open.st_ino;
}

Directory Directory::folder(const QByteArray& name) const {
  FileDescriptor folder(::openat(folder_.get(), name.constData(), kReadFolder | O_NOFOLLOW));
  if (!folder) throw failure(QStringLiteral("açılamadı"), path(name));
  return {std::move(folder), path(name)};
}

Directory Directory::folderOrNew(const QByteArray& name) const {
  if (::mkdirat(folder_.get(), name.constData(), 0777) == 0)
    sync();
  else if (errno != EEXIST)
    throw failure(QStringLiteral("oluşturulamadı"), path(name));
  return folder(name);
}

Directory Directory::makeFolder(const QByteArray& name) const {
  if (::mkdirat(folder_.get(), name.constData(), 0777) != 0)
    throw failure(QStringLiteral("oluşturulamadı"), path(name));
  return folder(name);
}

FileDescriptor Directory::file(const QByteArray& name) const {
  FileDescriptor file(::openat(folder_.get(), name.constData(), kReadFile | O_NOFOLLOW));
  struct stat status {};
  if (!file || ::fstat(file.get(), &status) != 0)
    throw failure(QStringLiteral("açılamadı"), path(name));
  if (!S_ISREG(status.st_mode)) throw FileError(QStringLiteral("açılamadı"), path(name), EINVAL);
  return file;
}

FileDescriptor Directory::makeFile(const QByteArray& name) const {
  FileDescriptor file(::openat(folder_.get(), name.constData(),
                               O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
  if (!file) throw failure(QStringLiteral("oluşturulamadı"), path(name));
  return file;
}

void Directory::rename(const QByteArray& from, const QByteArray& to) const {
  if (::renameat(folder_.get(), from.constData(), folder_.get(), to.constData()) != 0)
    throw failure(QStringLiteral("yerine konamadı"), path(to));
}

bool Directory::exchange(const QByteArray& one, const QByteArray& other) const {
  if (::renameat2(folder_.get(), one.constData(), folder_.get(), other.constData(),
                  RENAME_EXCHANGE) == 0)
    return true;
  if (errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP) return false;
  throw failure(QStringLiteral("yerine konamadı"), path(other));
}

void Directory::remove(const QByteArray& name) const {
  struct Level {
    Directory folder;
    QList<QByteArray> names;
  };
  // Not by recursion, and with a bound on the folders held open: how deep the tree is, is up to
  // whoever made it. What lies deeper is moved up.
  constexpr std::size_t kDeepest = 64;
  std::vector<Level> levels;
  QByteArray entry = name;
  while (true) {
    const Directory& folder = levels.empty() ? *this : levels.back().folder;
    // A folder is refused; anything else is gone.
    if (::unlinkat(folder.descriptor(), entry.constData(), 0) != 0 && errno != ENOENT) {
      if (errno != EISDIR) throw failure(QStringLiteral("silinemedi"), folder.path(entry));
      if (levels.size() == kDeepest) {
        const QByteArray moved = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
        Level& top = levels.front();
        if (::renameat(folder.descriptor(), entry.constData(), top.folder.descriptor(),
                       moved.constData()) != 0)
          throw failure(QStringLiteral("silinemedi"), folder.path(entry));
        top.names.append(moved);
      } else {
        Directory below = folder.folder(entry);
        QList<QByteArray> names = below.names();
        levels.push_back({std::move(below), std::move(names)});
      }
    }
    while (!levels.empty() && levels.back().names.isEmpty()) {
      const QByteArray emptied = levels.back().folder.path();
      levels.pop_back();
      const Directory& parent = levels.empty() ? *this : levels.back().folder;
      const QByteArray last = emptied.sliced(emptied.lastIndexOf('/') + 1);
      if (::unlinkat(parent.descriptor(), last.constData(), AT_REMOVEDIR) != 0 && errno != ENOENT)
        throw failure(QStringLiteral("silinemedi"), emptied);
    }
    if (levels.empty()) return;
    entry = levels.back().names.takeLast();
  }
}

void Directory::keepPrivate() const {
  if (::fchmod(folder_.get(), S_IRWXU) != 0)
    throw failure(QStringLiteral("kullanıcıya ayrılamadı"), path_);
}

std::uint64_t Directory::freeBytes() const {
  struct statvfs status {};
  if (::fstatvfs(folder_.get(), &status) != 0) throw failure(QStringLiteral("okunamadı"), path_);
  return std::uint64_t{status.f_bavail} * status.f_frsize;
}

void Directory::sync() const {
  // A file system that keeps its folders in another way says that there is nothing to do.
  if (::fsync(folder_.get()) != 0 && errno != EINVAL)
    throw failure(QStringLiteral("diske yazılamadı"), path_);
}

QList<QByteArray> visibleNames(QList<QByteArray> names) {
  names.removeIf([](const QByteArray& name) { return name.startsWith('.'); });
  std::ranges::sort(names);
  return names;
}

}  // namespace orvex
