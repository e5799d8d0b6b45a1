#include "base/NewFile.h"

#include "base/FileError.h"

#include <QUuid>

#include <cerrno>
#include <fcntl.h>
#include <tuple>

namespace orvex {

NewFile::NewFile(const Directory& folder)
    : folder_(folder),
      temporary_('.' + QUuid::createUuid().toByteArray(QUuid::WithoutBraces)),
      file_(folder.makeFile(temporary_)) {}

NewFile::~NewFile() {
  if (!temporary_.isEmpty()) ::unlinkat(folder_.descriptor(), temporary_.constData(), 0);
}

void NewFile::write(QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const ssize_t count =
        ::write(file_.get(), bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (count < 0 && errno == EINTR) continue;
    // Nothing written, and no reason why, would go on for ever.
    if (count <= 0)
      throw FileError(QStringLiteral("yazılamadı"), folder_.path(), count == 0 ? EIO : errno);
    bytes = bytes.sliced(count);
  }
}

void NewFile::beginSync() const noexcept {
  // Only a hint: what goes wrong, `sync` will tell.
  std::ignore = ::sync_file_range(file_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

void NewFile::sync() {
  if (::fsync(file_.get()) != 0)
    throw FileError(QStringLiteral("diske yazılamadı"), folder_.path(), errno);
}

void NewFile::moveTo(const QByteArray& name) {
  // Some file systems say only now what they could not write.
  if (const int code = file_.close(); code != 0)
    throw FileError(QStringLiteral("diske yazılamadı"), folder_.path(name), code);
  folder_.rename(temporary_, name);
  temporary_.clear();
}

void replaceDurably(const Directory& folder, const QByteArray& name, QByteArrayView bytes) {
  NewFile file(folder);
  file.write(bytes);
  file.sync();
  file.moveTo(name);
  folder.sync();
}

bool replaceFile(const QByteArray& path, QByteArrayView bytes) {
  try {
    const Directory folder = Directory::makeAbove(path);
    NewFile file(folder);
    file.write(bytes);
    file.moveTo(path.sliced(path.lastIndexOf('/') + 1));
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace orvex
