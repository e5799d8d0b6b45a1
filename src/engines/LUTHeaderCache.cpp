#include "engines/LUTHeaderCache.h"

#include "base/NewFile.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"
#include "base/Text.h"

#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace orvex {
namespace {

// The file: this number, how many entries, the entries, and the SHA-256 digest of all before it. A
// change of the layout changes the number.
constexpr quint64 kMagic = 0x4f5256584c555401;
constexpr qsizetype kDigestSize = 32;
// More than the most entries of the longest titles that are kept would take is not the cache.
constexpr qsizetype kMaximumBytes = qsizetype{64} * 1024 * 1024;
constexpr qsizetype kMaximumTitle = 256;
constexpr qint64 kTrustedAge = 2'000'000'000;

// Unsigned on the way, because a file system may claim any time; it is compared only.
qint64 nanoseconds(const timespec& time) noexcept {
  return static_cast<qint64>(static_cast<quint64>(time.tv_sec) * 1'000'000'000U +
                             static_cast<quint64>(time.tv_nsec));
}

}  // namespace

FileIdentity FileIdentity::of(const struct stat& status) noexcept {
  return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
          nanoseconds(status.st_ctim)};
}

LUTHeaderCache::LUTHeaderCache(QString path) : path_(std::move(path)) {
  const auto bytes = readSmallFile(AT_FDCWD, QFile::encodeName(path_), kMaximumBytes);
  if (bytes && !read(*bytes)) entries_.clear();
}

std::optional<LUTHeader> LUTHeaderCache::find(const FileIdentity& file) {
  const auto entry = entries_.find({file.device, file.inode});
  if (entry == entries_.end() || entry->file != file) return std::nullopt;
  entry->used = true;
  return entry->header;
}

void LUTHeaderCache::add(const FileIdentity& file, const LUTHeader& header) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (std::max(file.changed, file.modified) > nanoseconds(now) - kTrustedAge) return;
  if (header.title.value_or(QString()).size() + header.dimension.size() > kMaximumTitle) return;
  entries_.insert({file.device, file.inode}, {file, header, true});
  changed_ = true;
}

void LUTHeaderCache::save() const {
  if (changed_) std::ignore = replaceFile(QFile::encodeName(path_), written());
}

QByteArray LUTHeaderCache::written() const {
  QList<const Entry*> kept;
  for (const bool used : {true, false}) {
    for (const Entry& entry : entries_)
      if (entry.used == used && kept.size() < kMaximumEntries) kept.append(&entry);
  }
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream << kMagic << static_cast<quint32>(kept.size());
  for (const Entry* entry : std::as_const(kept)) {
    const auto& [file, header, used] = *entry;
    stream << file.device << file.inode << file.size << file.modified << file.changed
           << header.title.has_value() << header.title.value_or(QString()).toUtf8()
           << header.dimension.toUtf8();
  }
  return bytes + Sha256::of(bytes);
}

bool LUTHeaderCache::read(const QByteArray& bytes) {
  if (bytes.size() < kDigestSize) return false;
  const QByteArrayView body = QByteArrayView(bytes).chopped(kDigestSize);
  if (Sha256::of(body) != bytes.last(kDigestSize)) return false;
  QDataStream stream(QByteArray::fromRawData(body.data(), body.size()));
  quint64 magic = 0;
  quint32 count = 0;
  stream >> magic >> count;
  if (magic != kMagic || count > kMaximumEntries) return false;
  entries_.reserve(count);
  for (quint32 i = 0; i < count; ++i) {
    Entry entry;
    FileIdentity& file = entry.file;
    bool titled = false;
    QByteArray title;
    QByteArray dimension;
    stream >> file.device >> file.inode >> file.size >> file.modified >> file.changed >> titled >>
        title >> dimension;
    if (titled) entry.header.title = utf8Text(title);
    entry.header.dimension = utf8Text(dimension);
    entries_.insert({file.device, file.inode}, entry);
  }
  return stream.status() == QDataStream::Ok;
}

}  // namespace orvex
