#pragma once

#include <QObject>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

class QSettings;

namespace orvex {

class FolderAccess;
class SystemLog;

/// Asks the user for folders and keeps what they granted in the settings, one entry for each key.
/// It never begins to use a folder: who reads one brackets that with `startAccess` and
/// `stopAccess`.
class FolderBookmarkStore final : public QObject {
  Q_OBJECT

 public:
  /// All of it outlives the store.
  FolderBookmarkStore(FolderAccess& access, QSettings& settings, SystemLog& log);

  /// Asks for one folder under the heading `title` and stores the grant under `key`. Returns at
  /// once; `chosen` is called later with the folder, or with nothing when the user cancelled. A
  /// folder whose grant cannot be stored is handed on all the same; it lasts as long as the panel.
  void chooseDirectory(const QString& title, const QString& key,
                       std::function<void(std::optional<QUrl>)> chosen);

  /// Stores the grant of a folder that the user pointed at in another way than by being asked,
  /// under `key`. One that cannot be stored is logged and, as above, usable as long as the panel
  /// lives.
  void keepDirectory(const QUrl& folder, const QString& key);

  /// The folder whose grant is stored under `key`, with the grant renewed if it is stale. Nothing
  /// when there is none that can be used.
  [[nodiscard]] std::optional<QUrl> restoreDirectory(const QString& key);

  [[nodiscard]] FolderAccess& access() const noexcept { return access_; }

 private:
  FolderAccess& access_;
  QSettings& settings_;
  SystemLog& log_;
};

}  // namespace orvex
