#include "base/SmallFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace orvex {

std::optional<QByteArray> readSmallFile(int folder, const QByteArray& path, qsizetype maximum) {
  return readSmallFile(FileDescriptor(::openat(folder, path.constData(), kReadFile)), maximum);
}

std::optional<QByteArray> readSmallFile(const FileDescriptor& file, qsizetype maximum) {
  struct stat status {};
  if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
      status.st_size > maximum)
    return std::nullopt;
  // One byte more than expected tells whether the file has grown since.
  QByteArray bytes(status.st_size + 1, Qt::Uninitialized);
  qsizetype size = 0;
  while (size < bytes.size()) {
    const ssize_t count =
        ::read(file.get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    size += count;
  }
  if (size > status.st_size) return std::nullopt;
  bytes.truncate(size);
  return bytes;
}

}  // namespace orvex
