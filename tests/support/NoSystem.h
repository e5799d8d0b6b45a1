#pragma once

#include "engines/FolderBookmarkStore.h"
#include "platform/AudioComponents.h"
#include "support/RecordedDesktop.h"
#include "support/ScriptedAccess.h"
#include "support/TemporaryTree.h"

#include <QSettings>

namespace orvex {

/// A system's audio effects: those that a test lists while nobody asks.
struct ListedAudio final : AudioComponents {
  [[nodiscard]] QList<AudioComponent> effects(const std::stop_token&) override { return listed; }
  QList<AudioComponent> listed;
};

/// The store of a user who has chosen no folder yet.
struct NoFolders {
  TemporaryTree folder;
  QSettings settings{folder.text("settings.ini"), QSettings::IniFormat};
  ScriptedAccess access;
  RecordedDesktop log;
  FolderBookmarkStore store{access, settings, log};
};

}  // namespace orvex
