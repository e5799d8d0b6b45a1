#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <stop_token>

namespace orvex {

/// What a walk over a folder tree meets. Names are the raw bytes of the file system: they need not
/// be valid in any encoding, and only these bytes open the file again.
struct FileTreeEntry {
  enum class Kind : std::uint8_t { Folder, File, Link, Other };

  /// Below the root, with "/" between components.
  QByteArray path{};
  /// Where the last component of `path` begins.
  qsizetype nameOffset = 0;
  Kind kind = Kind::Other;
  /// The open folder that the entry lies in, for calls relative to it while it is visited.
  int parent = -1;
  /// The entry itself, open, when it is a folder that could be opened; else -1.
  int folder = -1;

  [[nodiscard]] QByteArrayView name() const { return QByteArrayView(path).sliced(nameOffset); }
};

/// A deep walk over the entries below a folder. Hidden entries (names that begin with a dot) are
/// left out with all below them; symbolic links are met but never followed, so a link cannot lead
/// out of the tree or round in a circle. The order within a folder is that of the file system.
class FileTree {
 public:
  /// Folders nested deeper than this below the root are met but not entered: each level of a walk
  /// holds a descriptor, and a process has few.
  static constexpr int kMaximumDepth = 256;

  enum class Next : std::uint8_t { Descend, Skip };
  /// Called for every entry; the answer matters for folders only.
  using Visitor = std::function<Next(const FileTreeEntry& entry)>;

  /// Walks the tree below `root`, which may be reached through a link, until its end or until
  /// `stop` is requested. A root that cannot be read has no entries. Returns how many folders could
  /// not be read or lie too deep, the root among them.
  [[nodiscard]] static qint64 walk(const QByteArray& root, const Visitor& visit,
                                   const std::stop_token& stop);
};

}  // namespace orvex
