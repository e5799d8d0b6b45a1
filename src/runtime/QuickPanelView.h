#pragma once

#include "engines/FirstReading.h"
#include "shell/PanelViewHost.h"

#include <QQmlComponent>
#include <QQmlEngine>

class QQuickItem;

namespace orvex {

class ColorServices;
class PanelWindow;

/// The controller's view on Qt Quick: an item that fills the window's panel area.
class QuickPanelView final : public PanelViewHost {
 public:
  /// All of it outlives this. The files of the view are read in the toolkit's thread from here on.
  /// `firstReading` is opened when the window has shown its first frame and the page is made.
  QuickPanelView(QQmlEngine& engine, PanelWindow& window, ColorServices& colorServices,
                 FirstReading firstReading);

  void createView(QSizeF size, const ViewColor& background) override;
  void setPreferredContentSize(QSizeF size) override;
  [[nodiscard]] std::unique_ptr<HostedView> hostRootView(const RootViewObjects& objects) override;

  [[nodiscard]] bool isInWindow() const override;
  [[nodiscard]] QString windowDescription() const override;
  [[nodiscard]] QSizeF viewSize() const override;

 private:
  QQmlEngine& engine_;
  PanelWindow& window_;
  ColorServices& colorServices_;
  FirstReading firstReading_;
  // Only begins the reading and keeps what was read; `hostRootView` waits for the rest of it.
  QQmlComponent files_;
};

/// Makes the item that `url` describes. What is wrong with it, a fault of this build, ends the
/// program.
[[nodiscard]] std::unique_ptr<QQuickItem> makeQuickItem(QQmlEngine& engine, const QString& url,
                                                        const QVariantMap& properties);

}  // namespace orvex
