#pragma once

#include <QSizeF>
#include <QString>

#include <memory>

namespace orvex {

class AudioUnitRegistry;
class FinalCutHostAdapter;
class FxPlugRegistry;
class LUTRegistry;
class MotionTemplateRegistry;
class OrvexDesktop;
class OrvexState;

/// The objects that the root view shows and drives. They outlive it.
struct RootViewObjects {
  OrvexState& state;
  MotionTemplateRegistry& motion;
  AudioUnitRegistry& audio;
  LUTRegistry& luts;
  FxPlugRegistry& fxplug;
  FinalCutHostAdapter& hostAdapter;
  OrvexDesktop& desktop;
};

/// A colour of calibrated red, green, blue and opacity, each 0 to 1.
struct ViewColor {
  double red;
  double green;
  double blue;
  double alpha;
};

/// The toolkit's part of the panel controller: it makes the view and shows the root view in it, so
/// that the controller needs no toolkit. Sizes are in points.
class PanelViewHost {
 public:
  /// Shows the root view for as long as it lives.
  class HostedView {
   public:
    virtual ~HostedView() = default;
  };

  virtual ~PanelViewHost() = default;

  /// Makes the plain view of the controller, at the origin.
  virtual void createView(QSizeF size, const ViewColor& background) = 0;
  virtual void setPreferredContentSize(QSizeF size) = 0;
  /// Builds the root view, pinned to the four edges of the view.
  [[nodiscard]] virtual std::unique_ptr<HostedView> hostRootView(
      const RootViewObjects& objects) = 0;

  [[nodiscard]] virtual bool isInWindow() const = 0;
  /// The window in words, or its absence.
  [[nodiscard]] virtual QString windowDescription() const = 0;
  [[nodiscard]] virtual QSizeF viewSize() const = 0;
};

}  // namespace orvex
