#include "base/WriteFile.h"

#include "base/FileDescriptor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>

namespace orvex {
namespace {

bool writeAll(int file, const QByteArray& bytes) {
  for (qsizetype done = 0; done < bytes.size();) {
    const ssize_t count =
        ::write(file, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    done += count;
  }
  return true;
}

}  // namespace

bool replaceFile(const QString& path, const QByteArray& bytes) {
  if (!QDir().mkpath(QFileInfo(path).absolutePath())) return false;
  const QByteArray target = QFile::encodeName(path);
  QByteArray temporary = target + ".XXXXXX";
  const FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!file) return false;
  if (writeAll(file.get(), bytes) && ::rename(temporary.constData(), target.constData()) == 0)
    return true;
  ::unlink(temporary.constData());
  return false;
}

}  // namespace orvex
