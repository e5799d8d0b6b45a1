#pragma once

#include "engines/FolderBookmarkStore.h"
#include "platform/AudioComponents.h"
#include "support/RecordedDesktop.h"
#include "support/ScriptedAccess.h"

#include <QSettings>
#include <QTemporaryDir>

namespace orvex {

/// A system without audio effects.
class NoAudio final : public AudioComponents {
 public:
  [[nodiscard]] QList<AudioComponent> effects(const std::stop_token&) override { return {}; }
};

/// The store of a user who never chose a folder.
class NoFolders final {
 public:
  [[nodiscard]] FolderBookmarkStore& bookmarks() { return store_; }

 private:
  ScriptedAccess access_;
  RecordedDesktop log_;
  QTemporaryDir folder_;
  QSettings settings_{folder_.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
  FolderBookmarkStore store_{access_, settings_, log_};
};

}  // namespace orvex
