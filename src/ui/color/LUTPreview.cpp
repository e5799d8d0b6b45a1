#include "ui/color/LUTPreview.h"

#include "ui/ContinuousCorners.h"
#include "ui/SharedTexture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orvex {

LUTPreview::LUTPreview(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

LUTPreview::~LUTPreview() {
  if (previews_) previews_->withdraw(this);
}

void LUTPreview::setPreviews(LUTPreviews* previews) {
  if (previews_ == previews) return;
  if (previews_) {
    previews_->withdraw(this);
    disconnect(previews_, nullptr, this, nullptr);
  }
  previews_ = previews;
  if (previews_) connect(previews_, &LUTPreviews::changed, this, &LUTPreview::ask);
  Q_EMIT previewsChanged();
  ask();
}

void LUTPreview::setFile(const QUrl& file) {
  if (file_ == file) return;
  file_ = file;
  // The picture of another LUT would be a lie.
  setState({}, {});
  Q_EMIT fileChanged();
  ask();
}

void LUTPreview::setSplit(double split) {
  split = std::clamp(split, 0.0, 1.0);
  if (split_ == split) return;
  split_ = split;
  Q_EMIT splitChanged();
  redraw();
}

void LUTPreview::setRadius(double radius) {
  if (radius_ == radius) return;
  radius_ = radius;
  Q_EMIT radiusChanged();
  redraw();
}

void LUTPreview::ask() {
  if (!previews_ || !isComponentComplete()) return;
  if (!isVisible())
    previews_->withdraw(this);
  else if (file_.isEmpty())
    setState(previews_->source().picture, {});
  else
    previews_->want(this, file_);
}

void LUTPreview::show(const LUTPreviewResult& preview) {
  preview ? setState(*preview, {}) : setState({}, preview.error());
}

bool LUTPreview::isInView() const {
  QRectF rect = boundingRect();
  for (const QQuickItem* item = this; item->parentItem() != nullptr; item = item->parentItem()) {
    rect = item->mapRectToItem(item->parentItem(), rect);
    if (item->parentItem()->clip()) rect &= item->parentItem()->boundingRect();
  }
  return !rect.isEmpty();
}

void LUTPreview::setState(const QImage& picture, const LUTPreviewError& error) {
  if (picture_.cacheKey() == picture.cacheKey() && error_ == error) return;
  picture_ = picture;
  error_ = error;
  redraw();
  Q_EMIT stateChanged();
}

void LUTPreview::redraw() {
  dirty_ = true;
  update();
}

void LUTPreview::componentComplete() {
  QQuickItem::componentComplete();
  ask();
}

void LUTPreview::itemChange(ItemChange change, const ItemChangeData& value) {
  if (change == ItemVisibleHasChanged) ask();
  if (change == ItemDevicePixelRatioHasChanged) redraw();
  QQuickItem::itemChange(change, value);
}

void LUTPreview::geometryChange(const QRectF& now, const QRectF& before) {
  if (now.size() != before.size()) redraw();
  QQuickItem::geometryChange(now, before);
}

// In the item's own pixels, so that nothing is scaled while the view scrolls.
QImage LUTPreview::drawn(double scale) const {
  const QSize size(static_cast<int>(std::ceil(width() * scale)),
                   static_cast<int>(std::ceil(height() * scale)));
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.setPen(Qt::NoPen);
  const QRectF bounds{{}, QSizeF(size)};
  const QPainterPath shape = continuousRoundedRect(bounds, radius_ * scale);
  const auto draw = [&](const QImage& picture, const QRectF& part) {
    QBrush brush(picture);
    brush.setTransform(QTransform::fromScale(bounds.width() / picture.width(),
                                             bounds.height() / picture.height()));
    painter.setClipRect(part);
    painter.setBrush(brush);
    painter.drawPath(shape);
  };
  const double edge = std::round(split_ * bounds.width());
  if (edge < bounds.width()) draw(picture_, bounds.adjusted(edge, 0, 0, 0));
  if (edge > 0) {
    draw(previews_->source().picture, QRectF(0, 0, edge, bounds.height()));
    const double line = std::round(1.5 * scale);
    painter.setClipping(false);
    if (edge < bounds.width())
      painter.fillRect(QRectF(edge - line / 2, 0, line, bounds.height()),
                       QColor(255, 255, 255, 200));
  }
  return image;
}

QSGNode* LUTPreview::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (picture_.isNull() || !previews_ || width() <= 0 || height() <= 0) {
    delete node;
    dirty_ = true;
    return nullptr;
  }
  auto* shown = static_cast<TextureNode*>(node);
  if (std::exchange(dirty_, false) || shown == nullptr) {
    if (shown == nullptr) shown = new TextureNode(window());
    const double scale = window()->effectiveDevicePixelRatio();
    const QImage image = drawn(scale);
    shown->show(std::shared_ptr<QSGTexture>(
                    window()->createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel)),
                QRectF(0, 0, image.width() / scale, image.height() / scale), QSGTexture::Linear);
  }
  return shown;
}

}  // namespace orvex
