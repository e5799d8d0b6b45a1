#pragma once

#include <QByteArray>

#include <cstdint>
#include <expected>
#include <optional>
#include <system_error>

namespace orvex {

/// Which folder a folder is, whatever it is called.
struct FolderIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  /// When it was made, in nanoseconds since 1970; 0 where the file system does not keep it. Tells a
  /// folder from one that was given the same inode after it.
  std::int64_t birth = 0;

  /// The folder at `path`, a link at its end followed.
  [[nodiscard]] static std::expected<FolderIdentity, std::error_code> of(const QByteArray& path);

  friend bool operator==(const FolderIdentity&, const FolderIdentity&) = default;
};

/// What a grant keeps of a folder. Its bytes carry a checksum, so that damaged ones are told from
/// older ones; they are no secret and no permission: the user's own rights decide what can be read.
struct FolderGrant {
  /// Absolute, without links, "." or ".." components, doubled or trailing slashes.
  QByteArray path;
  FolderIdentity identity;

  /// The grant of the folder that `path` leads to, through any links.
  [[nodiscard]] static std::expected<FolderGrant, std::error_code> of(const QByteArray& path);

  [[nodiscard]] QByteArray toBytes() const;
  /// Nothing for any bytes that `toBytes` did not make.
  [[nodiscard]] static std::optional<FolderGrant> fromBytes(const QByteArray& bytes);

  /// Where the folder is now: at its path, or under another name beside it when it was renamed and
  /// the file system tells when folders were made. A path that leads to another folder by now stays
  /// the answer. Nothing when no folder is there.
  struct Place {
    QByteArray path;
    bool moved = false;
  };
  [[nodiscard]] std::optional<Place> locate() const;

  friend bool operator==(const FolderGrant&, const FolderGrant&) = default;
};

}  // namespace orvex
