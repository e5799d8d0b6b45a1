#pragma once

#include <QByteArray>

#include <cstdint>
#include <expected>
#include <functional>
#include <stop_token>
#include <system_error>

namespace orvex {

/// What a walk over a folder tree meets. Names are the raw bytes of the file system: they need not be
/// valid in any encoding, and only these bytes open the file again.
struct FileTreeEntry {
  enum class Kind : std::uint8_t { Folder, File, Link, Other };

  /// Below the root, with "/" between components.
  QByteArray path;
  /// Where the last component of `path` begins.
  qsizetype nameOffset = 0;
  Kind kind = Kind::Other;

  [[nodiscard]] QByteArrayView name() const { return QByteArrayView(path).sliced(nameOffset); }
};

/// A deep walk over the entries below a folder. Hidden entries (names that begin with a dot) are left
/// out with all below them; symbolic links are met but never followed, so a link cannot lead out of
/// the tree or round in a circle; folders that cannot be read are passed over. The order within a
/// folder is that of the file system.
class FileTree {
 public:
  enum class Next : std::uint8_t { Descend, Skip };
  /// Called for every entry; the answer matters for folders only.
  using Visitor = std::function<Next(const FileTreeEntry& entry)>;

  /// Walks the tree below `root`, which may be reached through a link. Returns false when `stop` was
  /// requested on the way, true at the end of the tree. An error when the root itself cannot be
  /// looked at; a root that does not exist is `no_such_file_or_directory`.
  [[nodiscard]] static std::expected<bool, std::error_code> walk(const QByteArray& root,
                                                                 const Visitor& visit,
                                                                 const std::stop_token& stop);
};

}  // namespace orvex
