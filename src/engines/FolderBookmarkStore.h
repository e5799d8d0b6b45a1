#pragma once

#include <QString>
#include <QUrl>

#include <expected>
#include <functional>
#include <optional>

class QSettings;

namespace orvex {

class Background;
class FolderAccess;
class SystemLog;

/// Asks the user for folders and keeps what they granted in the settings, one entry for each key.
/// It never begins to use a folder: who reads one brackets that with `startAccess` and
/// `stopAccess`. The file system is asked on the `background` of whoever asks, who is told nothing
/// of what is superseded there. Main thread only.
class FolderBookmarkStore final {
 public:
  /// All of it outlives the store.
  FolderBookmarkStore(FolderAccess& access, QSettings& settings, SystemLog& log);

  /// Asks for one folder under the heading `title`, from the folder `start` on where one is given.
  /// Returns at once; `chosen` is called later with the folder, or with nothing when the user
  /// cancelled.
  void chooseDirectory(const QString& title, const QUrl& start,
                       std::function<void(std::optional<QUrl>)> chosen);

  /// Stores the grant of a folder that the user pointed at under `key`, then calls `kept`. Why one
  /// cannot be stored, in Turkish, is logged and handed on.
  void keepDirectory(const QUrl& folder, const QString& key, Background& background,
                     std::function<void(std::expected<void, QString>)> kept);

  /// Calls `restored` with the folder whose grant is stored under `key`, after a stale grant was
  /// renewed; with nothing when there is none that can be used, at once when none is stored.
  void restoreDirectory(const QString& key, Background& background,
                        std::function<void(std::optional<QUrl>)> restored);

  [[nodiscard]] FolderAccess& access() const noexcept { return access_; }

 private:
  FolderAccess& access_;
  QSettings& settings_;
  SystemLog& log_;
};

}  // namespace orvex
