#pragma once

#include "base/Directory.h"

namespace orvex {

/// A file that is written under a hidden name of its own and appears under its proper one whole.
/// Where it goes before that, it leaves nothing. What fails throws `FileError`.
class NewFile final {
 public:
  /// In `folder`, which must outlive the file.
  explicit NewFile(const Directory& folder);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  void write(QByteArrayView bytes);
  /// Has the system begin to put on the disk what was written, so that `sync` waits less later.
  void beginSync() const noexcept;
  /// Makes what was written durable.
  void sync();
  /// Ends the writing. A file or link called `name` is replaced; what the link leads to stays.
  void moveTo(const QByteArray& name);

 private:
  const Directory& folder_;
  QByteArray temporary_;
  FileDescriptor file_;
};

/// Puts `bytes` into the file `name` in `folder`: whoever reads it, even after a power cut, sees
/// the old or the new contents whole, and the new ones once this has returned.
void replaceDurably(const Directory& folder, const QByteArray& name, QByteArrayView bytes);

/// The same at `path` for what can be made again: a power cut may lose both. Makes the folders
/// above it. Returns whether it worked.
[[nodiscard]] bool replaceFile(const QByteArray& path, QByteArrayView bytes);

}  // namespace orvex
