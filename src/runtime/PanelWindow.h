#pragma once

#include <QQuickWindow>

namespace orvex {

/// The window that the panel is shown in, in the part of the host's: the panel's area fills it, but
/// for a strip along the bottom edge where the built-in host shows itself.
class PanelWindow final : public QQuickWindow {
  Q_OBJECT

 public:
  PanelWindow();

  /// The area that the panel may fill.
  [[nodiscard]] QQuickItem* panelArea() const noexcept { return panelArea_; }
  /// Shows `strip` below the panel; its implicit height is kept. The window becomes its parent.
  void setStrip(QQuickItem* strip);
  /// Makes the window so large that the panel's area has `size`, as far as the screen allows.
  void resizePanel(QSizeF size);

 Q_SIGNALS:
  void shown();
  void hidden();

 protected:
  bool event(QEvent* event) override;

 private:
  void layOut();
  [[nodiscard]] double stripHeight() const;

  QQuickItem* panelArea_;
  QQuickItem* strip_ = nullptr;
};

}  // namespace orvex
