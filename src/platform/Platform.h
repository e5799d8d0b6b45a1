#pragma once

#include <memory>

namespace orvex {

class AudioComponents;
class DistributedNotifications;
class FolderAccess;
class FolderChooser;
class PanelEndpoint;
class SchemeHandler;
class SystemLog;
class Workspace;

/// The services of the system that a program runs on, made once by its composition root.
class Platform {
 public:
  virtual ~Platform() = default;

  [[nodiscard]] virtual Workspace& workspace() = 0;
  [[nodiscard]] virtual DistributedNotifications& notifications() = 0;
  [[nodiscard]] virtual SystemLog& log() = 0;
  [[nodiscard]] virtual SchemeHandler& schemeHandler() = 0;
  /// Shared, because a list that hangs is left behind by whoever asked for it.
  [[nodiscard]] virtual std::shared_ptr<AudioComponents> audioComponents() = 0;
  [[nodiscard]] virtual FolderAccess& folderAccess() = 0;
  /// Lends the panel's own folder dialog, used where the desktop has none of its own; null takes it
  /// back.
  virtual void setFallbackChooser(FolderChooser* chooser) = 0;

  /// The user's desktop is set to show no animations.
  [[nodiscard]] virtual bool prefersReducedMotion() = 0;

  /// Makes the system's fonts ready for the first text. Takes a while; any thread.
  virtual void prepareFonts() = 0;

  /// Offers `panel` to companions of this session until the platform is destroyed; behind a panel
  /// that already does, from when that is gone. False when the session has no message bus; the
  /// panel works without.
  virtual bool exportPanel(PanelEndpoint& panel) = 0;
  /// The panel of this session, seen from another process.
  [[nodiscard]] virtual PanelEndpoint& remotePanel() = 0;
};

/// The platform of the system this was built for.
[[nodiscard]] std::unique_ptr<Platform> makePlatform();

}  // namespace orvex
