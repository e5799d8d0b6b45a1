#include "base/Utf8Reader.h"

#include <QByteArrayView>

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {
namespace {

// How many bytes at the end of `bytes` begin a character that is cut off there.
std::size_t cutAtEnd(QByteArrayView bytes) {
  const qsizetype last = std::min<qsizetype>(3, bytes.size());
  for (qsizetype back = 1; back <= last; ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if ((byte & 0xC0) == 0x80) continue;
    const int length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    return length > back ? static_cast<std::size_t>(back) : 0;
  }
  return 0;
}

}  // namespace

std::expected<QByteArray, Utf8Reader::Failure> Utf8Reader::header(int file,
                                                                  const std::stop_token& stop) {
  const auto notUtf8 = std::unexpected(Failure::NotUtf8);
  struct stat status {};
  if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
    return std::unexpected(Failure::Unreadable);
  // A file with holes can be far larger than the disk. Holes read as zeros, which are characters.
  const bool sparse = off_t{status.st_blocks} * 512 < status.st_size;

  QByteArray header;
  off_t offset = 0;
  // Bytes at the beginning of the buffer that belong to the next piece.
  std::size_t held = 0;
  while (offset < status.st_size) {
    if (stop.stop_requested()) return std::unexpected(Failure::Stopped);
    if (sparse && offset >= kHeaderSize) {
      const off_t data = ::lseek(file, offset, SEEK_DATA);
      if (data < 0 && errno == ENXIO) break;
      if (data > offset) {
        if (held > 0) return notUtf8;
        offset = data;
      }
    }
    const std::size_t room = buffer_.size() - held;
    const ssize_t count = ::pread(file, buffer_.data() + held,
                                  static_cast<std::size_t>(std::min<off_t>(
                                      static_cast<off_t>(room), status.st_size - offset)),
                                  offset);
    if (count < 0 && errno == EINTR) continue;
    // Read errors, and a file that was cut meanwhile.
    if (count <= 0) return std::unexpected(Failure::Unreadable);
    const QByteArrayView piece(buffer_.data(), static_cast<qsizetype>(held) + count);
    const std::size_t cut = cutAtEnd(piece);
    const QByteArrayView whole = piece.chopped(static_cast<qsizetype>(cut));
    if (!whole.isValidUtf8()) return notUtf8;
    if (header.size() < kHeaderSize)
      header.append(whole.first(std::min(whole.size(), kHeaderSize - header.size())));
    std::copy(whole.end(), piece.end(), buffer_.begin());
    held = cut;
    offset += count;
  }
  if (held > 0) return notUtf8;
  if (status.st_size > kHeaderSize) header.truncate(header.lastIndexOf('\n') + 1);
  if (header.startsWith("\xEF\xBB\xBF")) header.remove(0, 3);
  return header;
}

}  // namespace orvex
