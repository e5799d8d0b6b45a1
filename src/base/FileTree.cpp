#include "base/FileTree.h"

#include "base/FileDescriptor.h"
#include "base/FolderStream.h"

#include <cerrno>
#include <sys/stat.h>
#include <vector>

namespace orvex {
namespace {

FolderStream openFolder(int parent, const char* name, int flags) {
  FileDescriptor fd(::openat(parent, name, kReadFolder | flags));
  if (!fd) return nullptr;
  DIR* folder = ::fdopendir(fd.get());
  if (folder != nullptr) std::ignore = fd.release();
  return FolderStream(folder);
}

FileTreeEntry::Kind kindOf(DIR* folder, const dirent& found) {
  switch (found.d_type) {
    case DT_DIR:
      return FileTreeEntry::Kind::Folder;
    case DT_REG:
      return FileTreeEntry::Kind::File;
    case DT_LNK:
      return FileTreeEntry::Kind::Link;
    case DT_UNKNOWN:
      break;
    default:
      return FileTreeEntry::Kind::Other;
  }
  // Some file systems do not say; the entry itself does.
  struct stat status {};
  if (::fstatat(::dirfd(folder), found.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
    return FileTreeEntry::Kind::Other;
  if (S_ISDIR(status.st_mode)) return FileTreeEntry::Kind::Folder;
  if (S_ISREG(status.st_mode)) return FileTreeEntry::Kind::File;
  return S_ISLNK(status.st_mode) ? FileTreeEntry::Kind::Link : FileTreeEntry::Kind::Other;
}

// A folder being read, and how much of the entry's path leads to it.
struct Level {
  FolderStream folder;
  qsizetype prefix;
};

}  // namespace

qint64 FileTree::walk(const QByteArray& root, const Visitor& visit, const std::stop_token& stop) {
  qint64 skippedFolders = 0;
  std::vector<Level> levels;
  if (FolderStream folder = openFolder(AT_FDCWD, root.constData(), 0))
    levels.push_back({std::move(folder), 0});
  else
    ++skippedFolders;

  FileTreeEntry entry;
  while (!levels.empty()) {
    if (stop.stop_requested()) break;
    DIR* folder = levels.back().folder.get();
    const qsizetype prefix = levels.back().prefix;
    errno = 0;
    const dirent* found = ::readdir(folder);
    if (found == nullptr) {
      // A folder that could be read in part only.
      if (errno != 0) ++skippedFolders;
      levels.pop_back();
      continue;
    }
    if (found->d_name[0] == '.') continue;
    entry.path.truncate(prefix);
    entry.path.append(found->d_name);
    entry.nameOffset = prefix;
    entry.kind = kindOf(folder, *found);
    entry.parent = ::dirfd(folder);
    FolderStream below;
    if (entry.kind == FileTreeEntry::Kind::Folder) {
      // A folder that was swapped for a link since it was read is not followed either.
      if (levels.size() <= kMaximumDepth)
        below = openFolder(entry.parent, found->d_name, O_NOFOLLOW);
      if (!below) ++skippedFolders;
    }
    entry.folder = below ? ::dirfd(below.get()) : -1;
    if (visit(entry) == Next::Skip || !below) continue;
    entry.path.append('/');
    levels.push_back({std::move(below), entry.path.size()});
  }
  return skippedFolders;
}

}  // namespace orvex
