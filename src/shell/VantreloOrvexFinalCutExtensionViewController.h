#pragma once

#include "engines/FirstReading.h"
#include "platform/DistributedNotifications.h"
#include "shell/OrvexDesktop.h"
#include "shell/PanelViewHost.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace orvex {

class AudioComponents;
class FolderBookmarkStore;
class HostRuntime;
class SystemLog;
class Workspace;

/// The extension's principal view controller: it owns the panel's long-lived objects and ties them
/// to the life of the view. The runtime calls `loadView`, `viewDidLoad`, then `viewDidAppear` and
/// `viewWillDisappear` each time the panel is shown and hidden. Main thread only.
class VantreloOrvexFinalCutExtensionViewController final : public QObject {
  Q_OBJECT

 public:
  /// What the runtime hands in; all of it outlives the controller.
  struct Environment {
    HostRuntime& hostRuntime;
    Workspace& workspace;
    DistributedNotifications& notifications;
    SystemLog& log;
    std::shared_ptr<AudioComponents> audioComponents;
    FolderBookmarkStore& bookmarks;
    PanelViewHost& view;
    FirstReading firstReading = nullptr;
  };

  explicit VantreloOrvexFinalCutExtensionViewController(const Environment& environment);
  ~VantreloOrvexFinalCutExtensionViewController() override;

  void loadView();
  void viewDidLoad();
  void viewDidAppear();
  void viewWillDisappear();

  [[nodiscard]] OrvexState& orvexState() const noexcept { return *orvexState_; }
  /// Made on first use.
  [[nodiscard]] FinalCutHostAdapter& hostAdapter();

 private:
  void panelSizeRequested(const QVariantMap& userInfo);
  void grantPanelSize();
  void connectHost();

  Environment environment_;
  std::shared_ptr<OrvexState> orvexState_;
  OrvexDesktop desktop_;
  std::unique_ptr<MotionTemplateRegistry> motionRegistry_;
  std::unique_ptr<AudioUnitRegistry> audioRegistry_;
  std::unique_ptr<LUTRegistry> lutRegistry_;
  std::unique_ptr<FxPlugRegistry> fxPlugRegistry_;
  std::unique_ptr<FinalCutHostAdapter> hostAdapter_;
  std::unique_ptr<PanelViewHost::HostedView> hostingController_;
  std::unique_ptr<DistributedNotifications::Token> panelSizeObserver_;
  // Asked for and not yet in the state.
  std::optional<double> panelWidth_;
  std::optional<double> panelHeight_;
  QTimer panelSizing_;
  // True from the first connection of an appearance to its end: only then does a host that comes or
  // goes concern the panel.
  bool connected_ = false;
};

}  // namespace orvex
