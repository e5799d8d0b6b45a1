#pragma once

#include "engines/LUTHeaderCache.h"

#include <QByteArray>
#include <QImage>
#include <QString>

#include <atomic>
#include <optional>

namespace orvex {

/// Previews that were made before, as files of a folder that any number of panels may use and
/// anybody may empty. Whatever is wrong with it costs no more than making them again. Any thread.
class PreviewStore {
 public:
  static constexpr qint64 kMaximumBytes = qint64{96} * 1024 * 1024;

  /// Of more than `maximumBytes`, what was not used for longest goes first.
  explicit PreviewStore(const QString& folder, qint64 maximumBytes = kMaximumBytes);

  /// The digest of the contents that a file had when it was remembered.
  [[nodiscard]] std::optional<QByteArray> digest(const FileIdentity& file) const;
  /// Not of a file changed within the last two seconds: clocks of file systems are coarse, and it
  /// could change once more without showing it.
  void remember(const FileIdentity& file, const QByteArray& digest);

  /// What the LUT of the contents `digest` makes of the picture `source`, both SHA-256.
  [[nodiscard]] QImage find(const QByteArray& digest, const QByteArray& source) const;
  void add(const QByteArray& digest, const QByteArray& source, const QImage& picture);

 private:
  void write(const QByteArray& name, const QByteArray& bytes);
  void trim() const;

  const QByteArray folder_;
  const qint64 maximumBytes_;
  std::atomic<int> written_ = 0;
};

}  // namespace orvex
