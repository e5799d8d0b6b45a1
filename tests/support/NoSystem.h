#pragma once

#include "engines/FolderBookmarkStore.h"
#include "platform/AudioComponents.h"
#include "platform/FolderAccess.h"
#include "platform/SystemLog.h"

#include <QSettings>
#include <QTemporaryDir>

namespace orvex {

/// A system without audio effects.
class NoAudio final : public AudioComponents {
 public:
  [[nodiscard]] QList<AudioComponent> effects(const std::stop_token&) override { return {}; }
};

/// A system on which no folder can be chosen, and the store of a user who never chose one.
class NoFolders final : private FolderAccess, private SystemLog {
 public:
  [[nodiscard]] FolderBookmarkStore& bookmarks() { return store_; }

 private:
  void chooseFolder(const QString&, const QString&,
                    std::function<void(std::optional<QUrl>)>) override {}
  [[nodiscard]] std::expected<QByteArray, QString> makeGrant(const QUrl&) override {
    return std::unexpected(QString());
  }
  [[nodiscard]] std::expected<Resolved, QString> resolveGrant(const QByteArray&) override {
    return std::unexpected(QString());
  }
  [[nodiscard]] bool startAccess(const QUrl&) override { return false; }
  void stopAccess(const QUrl&) override {}
  void line(const QString&) override {}

  QTemporaryDir folder_;
  QSettings settings_{folder_.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
  FolderBookmarkStore store_{*this, settings_, *this};
};

}  // namespace orvex
