#include "ui/OrvexBox.h"

#include <algorithm>
#include <utility>

namespace orvex {

OrvexBox::OrvexBox(QQuickItem* parent) : QQuickItem(parent) {}

// Its content goes later than its own members do.
OrvexBox::~OrvexBox() {
  if (contentItem_) contentItem_->disconnect(this);
}

void OrvexBox::setContentItem(QQuickItem* item) {
  if (contentItem_ == item) return;
  if (contentItem_) {
    contentItem_->disconnect(this);
    contentItem_->setParentItem(nullptr);
  }
  contentItem_ = item;
  if (item != nullptr) {
    item->setParentItem(this);
    connect(item, &QQuickItem::implicitWidthChanged, this, &OrvexBox::implicitContentWidthChanged);
    connect(item, &QQuickItem::implicitHeightChanged, this,
            &OrvexBox::implicitContentHeightChanged);
  }
  Q_EMIT contentItemChanged();
  Q_EMIT implicitContentWidthChanged();
  Q_EMIT implicitContentHeightChanged();
  layOut();
}

void OrvexBox::setBackground(QQuickItem* item) {
  if (background_ == item) return;
  if (background_) background_->setParentItem(nullptr);
  background_ = item;
  if (item != nullptr) {
    item->setParentItem(this);
    item->setZ(-1);
  }
  Q_EMIT backgroundChanged();
  layOut();
}

double OrvexBox::implicitContentWidth() const {
  return contentItem_ ? contentItem_->implicitWidth() : 0;
}

double OrvexBox::implicitContentHeight() const {
  return contentItem_ ? contentItem_->implicitHeight() : 0;
}

double OrvexBox::availableWidth() const {
  return std::max(0.0, width() - leftPadding() - rightPadding());
}

void OrvexBox::componentComplete() {
  QQuickItem::componentComplete();
  layOut();
}

void OrvexBox::geometryChange(const QRectF& now, const QRectF& before) {
  QQuickItem::geometryChange(now, before);
  if (now.size() != before.size()) layOut();
}

void OrvexBox::tellPaddings(const QMarginsF& before) {
  const QMarginsF now = paddings();
  Q_EMIT paddingChanged();
  if (now.left() != before.left()) Q_EMIT leftPaddingChanged();
  if (now.top() != before.top()) Q_EMIT topPaddingChanged();
  if (now.right() != before.right()) Q_EMIT rightPaddingChanged();
  if (now.bottom() != before.bottom()) Q_EMIT bottomPaddingChanged();
  layOut();
}

void OrvexBox::layOut() {
  if (!isComponentComplete()) return;
  if (background_) background_->setSize(size());
  if (contentItem_) {
    contentItem_->setPosition({leftPadding(), topPadding()});
    contentItem_->setSize(
        {availableWidth(), std::max(0.0, height() - topPadding() - bottomPadding())});
  }
  if (std::exchange(availableWidth_, availableWidth()) != availableWidth_)
    Q_EMIT availableWidthChanged();
}

}  // namespace orvex
