#include "platform/linux/FolderGrant.h"

#include "base/FolderStream.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace orvex {
namespace {

// The bytes: SHA-256 of the rest, then magic, version, device, inode, birth, path.
constexpr quint32 kMagic = 0x4f52'5647;  // "ORVG"
constexpr quint8 kVersion = 1;
constexpr auto kStreamVersion = QDataStream::Qt_6_0;
constexpr qsizetype kDigestSize = 32;
constexpr qsizetype kMaxSize = kDigestSize + 64 + PATH_MAX;

QByteArray digest(const QByteArray& body) {
  return QCryptographicHash::hash(body, QCryptographicHash::Sha256);
}

bool isNormalized(const QByteArray& path) {
  if (path == "/") return true;
  if (!path.startsWith('/') || path.size() >= PATH_MAX || path.contains('\0')) return false;
  const QList<QByteArray> components = path.sliced(1).split('/');
  return std::ranges::none_of(components, [](const QByteArray& component) {
    return component.isEmpty() || component == "." || component == "..";
  });
}

}  // namespace

std::expected<FolderIdentity, std::error_code> FolderIdentity::of(const QByteArray& path) {
  struct statx status = {};
  if (::statx(AT_FDCWD, path.constData(), 0, STATX_TYPE | STATX_INO | STATX_BTIME, &status) != 0)
    return std::unexpected(std::error_code(errno, std::generic_category()));
  if (!S_ISDIR(status.stx_mode))
    return std::unexpected(std::make_error_code(std::errc::not_a_directory));
  FolderIdentity identity{makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino, 0};
  // Unsigned, because a file system may claim any time.
  if ((status.stx_mask & STATX_BTIME) != 0)
    identity.birth = static_cast<std::int64_t>(static_cast<std::uint64_t>(status.stx_btime.tv_sec) *
                                                   1'000'000'000U +
                                               status.stx_btime.tv_nsec);
  return identity;
}

std::expected<FolderGrant, std::error_code> FolderGrant::of(const QByteArray& path) {
  struct Free {
    void operator()(char* text) const noexcept { std::free(text); }
  };
  const std::unique_ptr<char, Free> real(::realpath(path.constData(), nullptr));
  if (!real) return std::unexpected(std::error_code(errno, std::generic_category()));
  const auto identity = FolderIdentity::of(real.get());
  if (!identity) return std::unexpected(identity.error());
  return FolderGrant{real.get(), *identity};
}

QByteArray FolderGrant::toBytes() const {
  QByteArray body;
  QDataStream stream(&body, QIODevice::WriteOnly);
  stream.setVersion(kStreamVersion);
  stream << kMagic << kVersion << quint64{identity.device} << quint64{identity.inode}
         << qint64{identity.birth} << path;
  return digest(body) + body;
}

std::optional<FolderGrant> FolderGrant::fromBytes(const QByteArray& bytes) {
  if (bytes.size() <= kDigestSize || bytes.size() > kMaxSize) return std::nullopt;
  const QByteArray body = bytes.sliced(kDigestSize);
  if (!bytes.startsWith(digest(body))) return std::nullopt;
  QDataStream stream(body);
  stream.setVersion(kStreamVersion);
  quint32 magic = 0;
  quint8 version = 0;
  quint64 device = 0;
  quint64 inode = 0;
  qint64 birth = 0;
  QByteArray path;
  stream >> magic >> version >> device >> inode >> birth >> path;
  if (stream.status() != QDataStream::Ok || !stream.atEnd() || magic != kMagic ||
      version != kVersion || !isNormalized(path))
    return std::nullopt;
  return FolderGrant{path, {device, inode, birth}};
}

std::optional<FolderGrant::Place> FolderGrant::locate() const {
  if (const auto found = FolderIdentity::of(path)) return Place{path, *found != identity};
  // Without a time of birth, a younger folder that was given the same inode would pass for this
  // one.
  if (identity.birth == 0) return std::nullopt;
  const QByteArray parent = path.first(path.lastIndexOf('/') + 1);
  const FolderStream siblings(::opendir(parent.constData()));
  if (!siblings) return std::nullopt;
  while (const dirent* entry = ::readdir(siblings.get())) {
    if (entry->d_ino != identity.inode || entry->d_type == DT_LNK) continue;
    const QByteArray candidate = parent + entry->d_name;
    if (FolderIdentity::of(candidate) == identity && isNormalized(candidate))
      return Place{candidate, true};
  }
  return std::nullopt;
}

}  // namespace orvex
