#include "ui/OrvexDisc.h"

#include "ui/DiscProfile.h"
#include "ui/Dither.h"
#include "ui/SharedTexture.h"

#include <QQuickWindow>

#include <cmath>

namespace orvex {

int OrvexDisc::Recipe::side() const {
  return static_cast<int>(std::ceil(2 * DiscProfile::reach(radius, deviation) * scale));
}

QImage OrvexDisc::Recipe::render(const std::stop_token& stop) const {
  const DiscProfile profile(radius, deviation);
  const auto centre = static_cast<float>(side() - 1) / 2;
  const auto pointsPerPixel = static_cast<float>(1 / scale);
  const float red = color.redF(), green = color.greenF(), blue = color.blueF();
  const float opacity = color.alphaF();
  QImage image(part.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  for (int y = part.top(); y <= part.bottom() && !stop.stop_requested(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y - part.top()));
    const float dy = static_cast<float>(y) - centre;
    for (int x = part.left(); x <= part.right(); ++x) {
      const float dx = static_cast<float>(x) - centre;
      const float alpha = profile.at(std::sqrt(dx * dx + dy * dy) * pointsPerPixel) * opacity;
      if (alpha <= 0) continue;
      line[x - part.left()] =
          ditheredPixel(red * alpha, green * alpha, blue * alpha, alpha, ditherThreshold(x, y));
    }
  }
  return image;
}

OrvexDisc::OrvexDisc(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &OrvexDisc::styleChanged, this, &OrvexDisc::restyle);
}

void OrvexDisc::componentComplete() {
  QQuickItem::componentComplete();
  restyle();
}

void OrvexDisc::itemChange(ItemChange change, const ItemChangeData& value) {
  if (change == ItemSceneChange && value.window != nullptr) {
    // The picture waits for the window's next frame: until then whatever else there is to show has
    // the processor.
    frameShown_ = false;
    connect(
        value.window, &QQuickWindow::frameSwapped, this,
        [this] {
          frameShown_ = true;
          paint();
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  }
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange) restyle();
  QQuickItem::itemChange(change, value);
}

void OrvexDisc::restyle() {
  if (!isComponentComplete()) return;
  const double side = 2 * DiscProfile::reach(diameter_ / 2, blurRadius_);
  setImplicitSize(side, side);
  wanted_ = {diameter_ / 2,
             blurRadius_,
             window() != nullptr ? window()->effectiveDevicePixelRatio() : 0,
             color_,
             {}};
  const QRect whole(0, 0, wanted_.side(), wanted_.side());
  const QRectF seen(seen_.topLeft() * wanted_.scale, seen_.size() * wanted_.scale);
  wanted_.part = seen.isEmpty() ? whole : whole & seen.toAlignedRect();
  paint();
}

// While a picture is being painted, newer wishes wait, and only the last of them counts. Not on the
// toolkit's threads, which the main thread waits for when it fills large areas.
void OrvexDisc::paint() {
  if (!frameShown_ || worker_.isRunning() || wanted_ == rendered_) return;
  if (wanted_.radius <= 0 || wanted_.deviation <= 0 || wanted_.part.isEmpty()) return;
  worker_.run(
      [recipe = wanted_](const WorkControl& control) { return recipe.render(control.stop); },
      [this, recipe = wanted_](const std::expected<QImage, std::exception_ptr>& image) {
        if (!image) return;
        image_ = *image;
        rendered_ = recipe;
        imageChanged_ = true;
        update();
        paint();
      });
}

QSGNode* OrvexDisc::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (image_.isNull()) {
    delete node;
    return nullptr;
  }
  auto* shown = static_cast<TextureNode*>(node);
  // Until the picture of a new size is there, that of the old one is stretched to it.
  const double points = width() / rendered_.side();
  const QRectF rect(QPointF(rendered_.part.topLeft()) * points,
                    QSizeF(rendered_.part.size()) * points);
  if (shown == nullptr || imageChanged_) {
    if (shown == nullptr) shown = new TextureNode(window());
    shown->show(std::shared_ptr<QSGTexture>(
                    window()->createTextureFromImage(image_, QQuickWindow::TextureHasAlphaChannel)),
                rect, QSGTexture::Nearest);
    imageChanged_ = false;
  } else {
    shown->setRect(rect);
  }
  return shown;
}

}  // namespace orvex
