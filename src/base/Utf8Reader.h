#pragma once

#include <QByteArray>

#include <cstdint>
#include <expected>
#include <limits>
#include <stop_token>
#include <vector>

namespace orvex {

/// Reads text files whose beginning is wanted and whose whole must be UTF-8. Memory does not grow
/// with the file. One reader serves one thread, file after file.
class Utf8Reader {
 public:
  /// The most that is kept of a file, in bytes.
  static constexpr qsizetype kHeaderSize = qsizetype{256} * 1024;

  enum class Failure : std::uint8_t {
    /// No regular file, an error of the disk, or the file was cut meanwhile.
    Unreadable,
    /// Some of it is not UTF-8.
    NotUtf8,
    Stopped,
  };

  Utf8Reader() : buffer_(kPieceSize) {}

  /// The regular file open in `file`, or its first `maximumLines` lines that are not empty, or,
  /// where these are larger than `kHeaderSize`, the first whole lines that fit; without a byte
  /// order mark. The file is read to the size it has now.
  [[nodiscard]] std::expected<QByteArray, Failure> header(
      int file, const std::stop_token& stop, int maximumLines = std::numeric_limits<int>::max());

 private:
  // What has just been copied from the disk cache is looked at while it is in the processor's.
  static constexpr std::size_t kPieceSize = std::size_t{64} * 1024;

  std::vector<char> buffer_;
};

}  // namespace orvex
