#pragma once

#include "platform/PanelEndpoint.h"
#include "runtime/PanelOptions.h"

#include <QObject>
#include <QQmlEngine>
#include <QSettings>
#include <QTimer>

#include <functional>
#include <future>
#include <memory>

namespace orvex {

class BuiltInHost;
class ColorServices;
class FolderBookmarkStore;
class HostPicture;
class HostRuntime;
class PanelWindow;
class Platform;
class QuickFolderChooser;
class QuickPanelView;
class VantreloOrvexFinalCutExtensionViewController;

/// Puts the panel together: platform, host, window and controller; and stands for the panel towards
/// companions.
class PanelRuntime final : public QObject, private PanelEndpoint {
  Q_OBJECT

 public:
  explicit PanelRuntime(const PanelOptions& options);
  ~PanelRuntime() override;

  /// Opens the window. The panel lives until it is closed.
  void show();
  /// Draws the page into the file of the options; `done` is called with success or failure. The
  /// companion is not called and no other process can reach this panel.
  void saveScreenshot(std::function<void(bool)> done);

 private:
  bool focusPanel() override;
  [[nodiscard]] QString hostInUse() override;
  bool performOnBuiltInHost(const QString& action) override;
  QString applyLUTOnBuiltInHost(const QString& name) override;

  void followSizes();
  [[nodiscard]] BuiltInHost* builtInHost() const;

  PanelOptions options_;
  std::unique_ptr<Platform> platform_;
  std::future<void> fonts_;
  std::unique_ptr<HostRuntime> hostRuntime_;
  QSettings settings_{QStringLiteral("Vantrelo"), QStringLiteral("Vantrelo Orvex")};
  std::unique_ptr<FolderBookmarkStore> bookmarks_;
  QQmlEngine engine_;
  std::unique_ptr<PanelWindow> window_;
  QTimer resizing_;
  std::unique_ptr<QuickFolderChooser> folderChooser_;
  std::unique_ptr<HostPicture> hostPicture_;
  std::unique_ptr<ColorServices> colorServices_;
  std::unique_ptr<QuickPanelView> view_;
  std::unique_ptr<VantreloOrvexFinalCutExtensionViewController> controller_;
};

}  // namespace orvex
