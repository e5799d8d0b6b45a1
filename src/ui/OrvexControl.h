#pragma once

#include "ui/OrvexBox.h"

namespace orvex {

/// A box that the keyboard and the pointer reach.
class OrvexControl : public orvex::OrvexBox {
  Q_OBJECT
  QML_ELEMENT

  /// The pointer is over it.
  Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged FINAL)
  /// It has the focus, and by the keyboard: who uses that is shown where it is.
  Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged FINAL)

 public:
  explicit OrvexControl(QQuickItem* parent = nullptr);

  [[nodiscard]] bool isHovered() const noexcept { return hovered_; }
  [[nodiscard]] bool hasVisualFocus() const noexcept { return visualFocus_; }

 Q_SIGNALS:
  void hoveredChanged();
  void visualFocusChanged();

 protected:
  void itemChange(ItemChange change, const ItemChangeData& value) override;
  void focusInEvent(QFocusEvent* event) override;
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;

 private:
  void setHovered(bool hovered);
  void updateVisualFocus();

  bool hovered_ = false;
  bool visualFocus_ = false;
  // How the focus came. The toolkit takes it from an item that is disabled and gives it back
  // without its reason, before it says that the item is enabled.
  Qt::FocusReason focusReason_ = Qt::OtherFocusReason;
  bool disabled_ = false;
};

}  // namespace orvex
