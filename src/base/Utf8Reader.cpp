#include "base/Utf8Reader.h"

#include "base/ByteOrderMark.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

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

// The first lines of a text that comes in pieces.
class FirstLines {
 public:
  explicit FirstLines(int maximumLines) : left_(maximumLines) {}

  void add(QByteArrayView piece) {
    if (complete_) return;
    const QByteArrayView fitting =
        piece.first(std::min(piece.size(), Utf8Reader::kHeaderSize - text_.size()));
    qsizetype end = 0;
    while (left_ > 0 && end < fitting.size()) {
      const qsizetype newline = fitting.indexOf('\n', end);
      lineHasText_ = lineHasText_ || newline != end;
      if (newline >= 0 && std::exchange(lineHasText_, false)) --left_;
      end = newline < 0 ? fitting.size() : newline + 1;
    }
    text_.append(fitting.first(end));
    complete_ = left_ == 0 || fitting.size() < piece.size();
  }

  // `isAll`: no text followed that did not fit.
  [[nodiscard]] QByteArray take(bool isAll) {
    if (left_ > 0 && !isAll) text_.truncate(text_.lastIndexOf('\n') + 1);
    if (text_.startsWith(kByteOrderMark)) text_.remove(0, kByteOrderMark.size());
    return std::move(text_);
  }

 private:
  QByteArray text_;
  int left_;
  bool lineHasText_ = false;
  bool complete_ = false;
};

}  // namespace

std::expected<QByteArray, Utf8Reader::Failure> Utf8Reader::header(int file,
                                                                  const std::stop_token& stop,
                                                                  int maximumLines) {
  const auto notUtf8 = std::unexpected(Failure::NotUtf8);
  struct stat status {};
  if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
    return std::unexpected(Failure::Unreadable);
  // A file with holes can be far larger than the disk. Holes read as zeros, which are characters.
  const bool sparse = off_t{status.st_blocks} * 512 < status.st_size;

  FirstLines header(maximumLines);
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
    header.add(whole);
    std::copy(whole.end(), piece.end(), buffer_.begin());
    held = cut;
    offset += count;
  }
  if (held > 0) return notUtf8;
  return header.take(status.st_size <= kHeaderSize);
}

}  // namespace orvex
