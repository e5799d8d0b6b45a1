#pragma once

#include "engines/LUTHeader.h"

#include <QHash>

struct stat;

namespace orvex {

/// Which file it is and what state it is in: a file whose contents changed has another identity.
struct FileIdentity {
  quint64 device = 0;
  quint64 inode = 0;
  qint64 size = 0;
  /// Nanoseconds since 1970.
  qint64 modified = 0;
  qint64 changed = 0;

  [[nodiscard]] static FileIdentity of(const struct stat& status) noexcept;

  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The headers of LUT files that were read before, in one small file that any scan may read and
/// replace. Whatever is wrong with the file costs no more than reading the LUTs again.
class LUTHeaderCache {
 public:
  /// Of which the file keeps no more.
  static constexpr qsizetype kMaximumEntries = 65'536;

  /// Reads the cache kept in the file `path`.
  explicit LUTHeaderCache(QString path);

  [[nodiscard]] std::optional<LUTHeader> find(const FileIdentity& file);
  /// Adds what a file says. A file changed within the last two seconds is not added: clocks of file
  /// systems are coarse, and it could change once more without showing it.
  void add(const FileIdentity& file, const LUTHeader& header);
  /// Replaces the file when something was added. Failing to is no matter for the caller.
  void save() const;

 private:
  struct Key {
    quint64 device;
    quint64 inode;
    friend bool operator==(const Key&, const Key&) = default;
    friend std::size_t qHash(const Key& key, std::size_t seed) {
      return qHashMulti(seed, key.device, key.inode);
    }
  };
  struct Entry {
    FileIdentity file;
    LUTHeader header;
    // Asked for or added since the file was read.
    bool used = false;
  };

  [[nodiscard]] bool read(const QByteArray& bytes);
  [[nodiscard]] QByteArray written() const;

  QString path_;
  QHash<Key, Entry> entries_;
  bool changed_ = false;
};

}  // namespace orvex
