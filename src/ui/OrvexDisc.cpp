#include "ui/OrvexDisc.h"

#include "ui/DiscProfile.h"
#include "ui/Dither.h"
#include "ui/SharedTexture.h"

#include <QQuickWindow>

#include <cmath>
#include <vector>

namespace orvex {

QImage OrvexDisc::Recipe::render(const std::stop_token& stop) const {
  const DiscProfile profile(radius, deviation);
  const int side = static_cast<int>(std::ceil(2 * profile.reach() * scale));
  const auto centre = static_cast<float>(side - 1) / 2;
  const auto pointsPerPixel = static_cast<float>(1 / scale);
  const float red = color.redF(), green = color.greenF(), blue = color.blueF();
  const float opacity = color.alphaF();
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  std::vector<float> alphas(static_cast<std::size_t>(side));
  const auto paintLine = [&](int y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < side; ++x) {
      const float alpha = alphas[static_cast<std::size_t>(x)];
      if (alpha <= 0) continue;
      line[x] =
          ditheredPixel(red * alpha, green * alpha, blue * alpha, alpha, ditherThreshold(x, y));
    }
  };
  // Only the grain differs between the quarters.
  for (int y = 0; y <= side - 1 - y && !stop.stop_requested(); ++y) {
    const float dy = static_cast<float>(y) - centre;
    for (int x = 0; x <= side - 1 - x; ++x) {
      const float dx = static_cast<float>(x) - centre;
      const float alpha = profile.at(std::sqrt(dx * dx + dy * dy) * pointsPerPixel) * opacity;
      alphas[static_cast<std::size_t>(x)] = alphas[static_cast<std::size_t>(side - 1 - x)] = alpha;
    }
    paintLine(y);
    if (y != side - 1 - y) paintLine(side - 1 - y);
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
  const double side = diameter_ + 6 * blurRadius_;
  setImplicitSize(side, side);
  const bool wasReady = isReady();
  wanted_ = {diameter_ / 2, blurRadius_,
             window() != nullptr ? window()->effectiveDevicePixelRatio() : 0, color_};
  if (wasReady != isReady()) Q_EMIT readyChanged();
  paint();
}

// While a picture is being painted, newer wishes wait, and only the last of them counts. Not on the
// toolkit's threads, which the main thread waits for when it fills large areas.
void OrvexDisc::paint() {
  if (!frameShown_ || worker_.isRunning() || wanted_ == rendered_) return;
  if (wanted_.radius <= 0 || wanted_.deviation <= 0 || wanted_.scale <= 0) return;
  worker_.run(
      [recipe = wanted_](const WorkControl& control) { return recipe.render(control.stop); },
      [this, recipe = wanted_](const std::expected<QImage, std::exception_ptr>& image) {
        if (!image) return;
        image_ = *image;
        rendered_ = recipe;
        imageChanged_ = true;
        update();
        if (isReady()) Q_EMIT readyChanged();
        paint();
      });
}

QSGNode* OrvexDisc::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (image_.isNull()) {
    delete node;
    return nullptr;
  }
  auto* shown = static_cast<TextureNode*>(node);
  const QRectF rect(0, 0, width(), height());
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
