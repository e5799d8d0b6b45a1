#include "cloud/Transcript.h"

#include "base/FileError.h"
#include "base/Sha256.h"

#include <cerrno>

namespace orvex {

FileTranscript transcribe(const FileDescriptor& file, const QByteArray& path,
                          const std::function<void(QByteArrayView)>& copy) {
  FileTranscript transcript;
  Sha256 digest;
  QByteArray buffer(qsizetype{256} * 1024, Qt::Uninitialized);
  for (;;) {
    const ssize_t count =
        ::read(file.get(), buffer.data(), static_cast<std::size_t>(buffer.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileError(QStringLiteral("okunamadı"), path, errno);
    if (count == 0) break;
    const auto piece = QByteArrayView(buffer).first(count);
    digest.add(piece);
    copy(piece);
    transcript.bytes += count;
  }
  transcript.sha256 = QString::fromLatin1(digest.finish().toHex());
  return transcript;
}

}  // namespace orvex
