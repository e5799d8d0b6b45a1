#pragma once

#include <QByteArray>

#include <optional>
#include <stop_token>
#include <vector>

namespace orvex {

/// Reads text files whose beginning is wanted and whose whole must be UTF-8. Memory does not grow
/// with the file. One reader serves one thread, file after file.
class Utf8Reader {
 public:
  /// The most that is kept of a file, in bytes.
  static constexpr qsizetype kHeaderSize = qsizetype{256} * 1024;

  Utf8Reader() : buffer_(static_cast<std::size_t>(kHeaderSize)) {}

  /// The regular file open in `file`, or, if it is larger than `kHeaderSize`, its first whole lines
  /// that fit; without a byte order mark. The file is read to the size it has now. Nothing when it
  /// cannot be, is not UTF-8 throughout, or `stop` was requested.
  [[nodiscard]] std::optional<QByteArray> header(int file, const std::stop_token& stop);

 private:
  std::vector<char> buffer_;
};

}  // namespace orvex
