#include "ui/color/PreviewStore.h"

#include "base/DescribedError.h"
#include "base/Directory.h"
#include "base/NewFile.h"
#include "base/Sha256.h"
#include "base/SmallFile.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

namespace orvex {
namespace {

constexpr qsizetype kDigestSize = 32;
constexpr qsizetype kMaximumPicture = qsizetype{1} * 1024 * 1024;
// So many files between two looks at how large the folder is.
constexpr int kTrimInterval = 128;
constexpr qint64 kTrustedAge = 2'000'000'000;

QByteArray nameOf(const QByteArray& key) {
  return Sha256::of(key).toHex();
}

QByteArray nameOf(const FileIdentity& file) {
  QByteArray key;
  for (const auto part : {static_cast<qint64>(file.device), static_cast<qint64>(file.inode),
                          file.size, file.modified, file.changed})
    key += QByteArray::number(part) + ' ';
  return nameOf(key);
}

// Counts as used now; that it cannot be marked is no matter.
std::optional<QByteArray> read(const QByteArray& path, qsizetype maximum) {
  auto bytes = readSmallFile(AT_FDCWD, path, maximum);
  if (bytes) std::ignore = ::utimensat(AT_FDCWD, path.constData(), nullptr, AT_SYMLINK_NOFOLLOW);
  return bytes;
}

}  // namespace

PreviewStore::PreviewStore(const QString& folder, qint64 maximumBytes)
    : folder_(QFile::encodeName(folder)), maximumBytes_(maximumBytes) {}

std::optional<QByteArray> PreviewStore::digest(const FileIdentity& file) const {
  auto digest = read(folder_ + '/' + nameOf(file), kDigestSize);
  if (!digest || digest->size() != kDigestSize) return std::nullopt;
  return digest;
}

void PreviewStore::remember(const FileIdentity& file, const QByteArray& digest) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const qint64 age =
      qint64{now.tv_sec} * 1'000'000'000 + now.tv_nsec - std::max(file.changed, file.modified);
  if (age >= kTrustedAge) write(nameOf(file), digest);
}

QImage PreviewStore::find(const QByteArray& digest, const QByteArray& source) const {
  const auto bytes = read(folder_ + '/' + nameOf(digest + source), kMaximumPicture);
  if (!bytes) return {};
  return QImage::fromData(*bytes, "PNG").convertToFormat(QImage::Format_RGB32);
}

void PreviewStore::add(const QByteArray& digest, const QByteArray& source, const QImage& picture) {
  // Quick rather than small.
  constexpr int kQuality = 90;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG", kQuality))
    write(nameOf(digest + source), bytes);
}

void PreviewStore::write(const QByteArray& name, const QByteArray& bytes) {
  if (written_++ % kTrimInterval == 0) trim();
  std::ignore = replaceFile(folder_ + '/' + name, bytes);
}

void PreviewStore::trim() const try {
  struct Entry {
    QByteArray name;
    qint64 bytes;
    time_t used;
  };
  const Directory folder = Directory::open(folder_);
  std::vector<Entry> entries;
  qint64 total = 0;
  for (const QByteArray& name : folder.names()) {
    struct stat status {};
    if (::fstatat(folder.descriptor(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
      continue;
    entries.push_back({name, status.st_blocks * 512, status.st_mtime});
    total += entries.back().bytes;
  }
  if (total <= maximumBytes_) return;
  std::ranges::sort(entries, {}, &Entry::used);
  for (const Entry& entry : entries) {
    // Room for some time.
    if (total <= maximumBytes_ / 4 * 3) return;
    folder.remove(entry.name);
    total -= entry.bytes;
  }
} catch (const DescribedError&) {
  // There is no folder yet, or another panel is at it.
}

}  // namespace orvex
