#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>
#include <QList>

#include <cstdint>

namespace orvex {

/// A folder held open. What lies in it is reached by its name and never through a link, so that
/// nothing outside is touched whatever has been put there. Names are raw bytes without "/". What
/// fails throws `FileError`.
class Directory {
 public:
  /// The folder at `path`, which may itself be reached through links.
  [[nodiscard]] static Directory open(const QByteArray& path);
  /// The same; the folder and those above it are made where they are missing, durably.
  [[nodiscard]] static Directory make(const QByteArray& path);
  /// The folder that `path`, which holds a slash, lies or would lie in, made like that.
  [[nodiscard]] static Directory makeAbove(const QByteArray& path);

  [[nodiscard]] const QByteArray& path() const noexcept { return path_; }
  [[nodiscard]] QByteArray path(const QByteArray& name) const { return path_ + '/' + name; }
  [[nodiscard]] int descriptor() const noexcept { return folder_.get(); }

  /// All names but "." and "..", hidden ones too, in the order of the file system.
  [[nodiscard]] QList<QByteArray> names() const;
  [[nodiscard]] bool has(const QByteArray& name) const;
  /// Whether `name` is the name of the folder `entry`.
  [[nodiscard]] bool has(const QByteArray& name, const Directory& entry) const;
  [[nodiscard]] Directory folder(const QByteArray& name) const;
  /// The same; made where it is missing, durably.
  [[nodiscard]] Directory folderOrNew(const QByteArray& name) const;
  /// A folder that was not there before.
  [[nodiscard]] Directory makeFolder(const QByteArray& name) const;
  /// A regular file, for reading; anything else is refused without waiting for it.
  [[nodiscard]] FileDescriptor file(const QByteArray& name) const;
  /// A file that was not there before, for writing.
  [[nodiscard]] FileDescriptor makeFile(const QByteArray& name) const;

  /// In one step; what carried the name `to` is replaced as far as the system allows: files and
  /// links by files, empty folders by folders.
  void rename(const QByteArray& from, const QByteArray& to) const;
  /// Two entries take each other's name in one step. False where the file system cannot.
  [[nodiscard]] bool exchange(const QByteArray& one, const QByteArray& other) const;
  /// Removes the entry with all below it; a link goes, what it leads to stays. Nothing of that name
  /// is as good.
  void remove(const QByteArray& name) const;
  /// Takes the folder from everybody but the user.
  void keepPrivate() const;
  /// What the user can still write on the folder's file system.
  [[nodiscard]] std::uint64_t freeBytes() const;
  /// Makes durable which names the folder holds.
  void sync() const;

 private:
  Directory(FileDescriptor folder, QByteArray path) noexcept
      : folder_(std::move(folder)), path_(std::move(path)) {}

  FileDescriptor folder_;
  // What it was opened by: for messages, and to name what lies in it to others.
  QByteArray path_;
};

/// Those of `names` that are not hidden, sorted by their bytes.
[[nodiscard]] QList<QByteArray> visibleNames(QList<QByteArray> names);

}  // namespace orvex
