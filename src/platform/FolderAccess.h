#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace orvex {

/// Keeps the folders that the user lets the program read beyond the life of the process. It asks
/// the file system, which may hang where the network does, and throws `DescribedError` where that
/// leads to no folder. Any thread.
class FolderGrants {
 public:
  /// What grant bytes lead to.
  struct Resolved {
    /// A local file URL, without a trailing slash.
    QUrl url;
    /// The folder is no longer the one the grant was made for, or the bytes are out of date: the
    /// caller should make a new grant for `url`.
    bool stale = false;
  };

  virtual ~FolderGrants() = default;

  /// Bytes from which `resolveGrant` finds the folder again in a later process. They widen nothing:
  /// whoever has them can reach that folder only.
  [[nodiscard]] virtual QByteArray makeGrant(const QUrl& folder) = 0;

  /// The folder that grant bytes stand for. Any bytes are safe to hand in; those that were not made
  /// by `makeGrant`, or whose folder is gone, are an error.
  [[nodiscard]] virtual Resolved resolveGrant(const QByteArray& grant) = 0;
};

/// Folders that the user lets the program read: asking for one, and using it. Main thread, except
/// where said.
class FolderAccess {
 public:
  virtual ~FolderAccess() = default;

  /// Asks the user for one existing folder; no file, no second folder can be chosen. Returns at
  /// once. `chosen` is called once, later, on the main thread: with a local file URL, or with
  /// nothing when the user cancelled or no chooser could be shown; never after this object is gone.
  /// `title` is what the dialog says, `prompt` the label of the button that accepts, `start` the
  /// folder that it opens at: a local file URL, or empty for wherever suits.
  virtual void chooseFolder(const QString& title, const QString& prompt, const QUrl& start,
                            std::function<void(std::optional<QUrl>)> chosen) = 0;

  /// Shared, because a folder that hangs is left behind by whoever asked for it.
  [[nodiscard]] virtual std::shared_ptr<FolderGrants> grants() = 0;

  /// Begins to use a granted folder. Returns whether `stopAccess` has to be called; false is no
  /// failure where a system needs no such bracket. Nests. Any thread.
  [[nodiscard]] virtual bool startAccess(const QUrl& folder) = 0;
  /// Ends what one `startAccess` that returned true began. Any thread.
  virtual void stopAccess(const QUrl& folder) = 0;

  /// Uses a granted folder from now until the last copy of what is returned is gone; this outlives
  /// it. Any thread.
  [[nodiscard]] std::shared_ptr<void> use(const QUrl& folder) {
    if (!startAccess(folder)) return nullptr;
    return {nullptr, [this, folder](void*) { stopAccess(folder); }};
  }
};

}  // namespace orvex
