#include "runtime/PanelWindow.h"

#include "shell/PanelSize.h"

#include <QEvent>
#include <QQuickItem>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace orvex {

PanelWindow::PanelWindow() : panelArea_(new QQuickItem(contentItem())) {
  setTitle(QStringLiteral("Vantrelo Orvex"));
  setMinimumSize({kLeastPanelExtent, kLeastPanelExtent});
  connect(this, &QWindow::widthChanged, this, &PanelWindow::layOut);
  connect(this, &QWindow::heightChanged, this, &PanelWindow::layOut);
}

void PanelWindow::setStrip(QQuickItem* strip) {
  strip_ = strip;
  strip_->setParent(this);
  strip_->setParentItem(contentItem());
  setMinimumHeight(kLeastPanelExtent + static_cast<int>(std::ceil(stripHeight())));
  layOut();
}

double PanelWindow::stripHeight() const {
  return strip_ != nullptr ? strip_->implicitHeight() : 0;
}

void PanelWindow::resizePanel(QSizeF size) {
  QSize wanted(static_cast<int>(std::ceil(std::min(size.width(), 16384.0))),
               static_cast<int>(std::ceil(std::min(size.height() + stripHeight(), 16384.0))));
  if (screen() != nullptr) wanted = wanted.boundedTo(screen()->availableSize());
  resize(wanted);
}

void PanelWindow::layOut() {
  const double panelHeight = std::max(0.0, height() - stripHeight());
  panelArea_->setSize(QSizeF(width(), panelHeight));
  if (strip_ == nullptr) return;
  strip_->setPosition({0, panelHeight});
  strip_->setSize(QSizeF(width(), stripHeight()));
}

bool PanelWindow::event(QEvent* event) {
  const bool handled = QQuickWindow::event(event);
  if (event->type() == QEvent::Show) Q_EMIT shown();
  if (event->type() == QEvent::Hide) Q_EMIT hidden();
  return handled;
}

}  // namespace orvex
