#include "platform/Platform.h"
#include "platform/linux/BusNotifications.h"
#include "platform/linux/BusPanel.h"
#include "platform/linux/CategoryLog.h"
#include "platform/linux/DesktopSettings.h"
#include "platform/linux/FontRules.h"
#include "platform/linux/GioSchemeHandler.h"
#include "platform/linux/GioWorkspace.h"
#include "platform/linux/LinuxFolderAccess.h"
#include "platform/linux/Lv2AudioComponents.h"
#include "platform/linux/SessionBus.h"

#include <QCoreApplication>
#include <QObject>

namespace orvex {
namespace {

class LinuxPlatform final : public Platform {
 public:
  [[nodiscard]] Workspace& workspace() override { return workspace_; }
  [[nodiscard]] DistributedNotifications& notifications() override { return notifications_; }
  [[nodiscard]] SystemLog& log() override { return *log_; }
  [[nodiscard]] SchemeHandler& schemeHandler() override { return schemeHandler_; }
  [[nodiscard]] FolderAccess& folderAccess() override { return folderAccess_; }
  void setFallbackChooser(FolderChooser* chooser) override {
    folderAccess_.setFallbackChooser(chooser);
  }
  [[nodiscard]] std::shared_ptr<AudioComponents> audioComponents() override {
    return audioComponents_;
  }
  [[nodiscard]] PanelEndpoint& remotePanel() override { return remotePanel_; }

  [[nodiscard]] bool prefersReducedMotion() override { return desktopAnimationsOff(); }

  void prepareFonts() override { applyFontRules(); }

  bool exportPanel(PanelEndpoint& panel) override {
    auto exported = exportPanelOn(bus_, panel);
    if (!exported) return false;
    exportedPanel_ = std::move(exported);
    return true;
  }

 private:
  const std::shared_ptr<CategoryLog> log_ = std::make_shared<CategoryLog>();
  SessionBus bus_;
  GioWorkspace workspace_{bus_};
  GioSchemeHandler schemeHandler_;
  BusNotifications notifications_{bus_, *log_};
  LinuxFolderAccess folderAccess_{bus_, *log_};
  // The program lies beside every one that may need it.
  const std::shared_ptr<AudioComponents> audioComponents_ = std::make_shared<Lv2AudioComponents>(
      QCoreApplication::applicationDirPath() + QStringLiteral("/orvex-lv2"), log_);
  RemotePanel remotePanel_{bus_};
  std::unique_ptr<QObject> exportedPanel_;
};

}  // namespace

std::unique_ptr<Platform> makePlatform() {
  return std::make_unique<LinuxPlatform>();
}

}  // namespace orvex
