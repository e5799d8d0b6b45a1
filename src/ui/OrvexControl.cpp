#include "ui/OrvexControl.h"

#include <utility>

namespace orvex {

OrvexControl::OrvexControl(QQuickItem* parent) : OrvexBox(parent) {
  setAcceptHoverEvents(true);
  setActiveFocusOnTab(true);
}

void OrvexControl::itemChange(ItemChange change, const ItemChangeData& value) {
  OrvexBox::itemChange(change, value);
  if (change == ItemEnabledHasChanged) disabled_ = !value.boolValue;
  if ((change == ItemEnabledHasChanged || change == ItemVisibleHasChanged) && !value.boolValue)
    setHovered(false);
  if (change == ItemActiveFocusHasChanged) updateVisualFocus();
}

void OrvexControl::focusInEvent(QFocusEvent* event) {
  OrvexBox::focusInEvent(event);
  // A window that comes back has the focus where, and as, it was.
  if (!disabled_ && event->reason() != Qt::ActiveWindowFocusReason) focusReason_ = event->reason();
  updateVisualFocus();
}

void OrvexControl::hoverEnterEvent(QHoverEvent* event) {
  OrvexBox::hoverEnterEvent(event);
  setHovered(true);
}

// What was disabled under the pointer is not entered again when it is enabled.
void OrvexControl::hoverMoveEvent(QHoverEvent* event) {
  OrvexBox::hoverMoveEvent(event);
  setHovered(contains(event->position()));
}

void OrvexControl::hoverLeaveEvent(QHoverEvent* event) {
  OrvexBox::hoverLeaveEvent(event);
  setHovered(false);
}

void OrvexControl::setHovered(bool hovered) {
  if (std::exchange(hovered_, hovered) != hovered) Q_EMIT hoveredChanged();
}

void OrvexControl::updateVisualFocus() {
  const bool byKeyboard = focusReason_ == Qt::TabFocusReason ||
                          focusReason_ == Qt::BacktabFocusReason ||
                          focusReason_ == Qt::ShortcutFocusReason;
  const bool visualFocus = hasActiveFocus() && byKeyboard;
  if (std::exchange(visualFocus_, visualFocus) != visualFocus) Q_EMIT visualFocusChanged();
}

}  // namespace orvex
