#include "ui/OrvexShadow.h"

#include "ui/ContinuousCorners.h"
#include "ui/Dither.h"
#include "ui/SharedTexture.h"

#include <QPainter>
#include <QRgba64>

#include <compare>
#include <vector>

namespace orvex {
namespace {

// One pass of a moving average over `count` values that lie `stride` apart; beyond them all is 0.
void average(float* values, int count, int stride, int reach, std::vector<float>& scratch) {
  const auto value = [&](int i) { return i >= 0 && i < count ? values[i * stride] : 0.0f; };
  const float weight = 1.0f / static_cast<float>(2 * reach + 1);
  double sum = 0;
  for (int i = 0; i < reach; ++i) sum += value(i);
  for (int i = 0; i < count; ++i) {
    sum += value(i + reach);
    scratch[static_cast<std::size_t>(i)] = static_cast<float>(sum) * weight;
    sum -= value(i - reach);
  }
  for (int i = 0; i < count; ++i) values[i * stride] = scratch[static_cast<std::size_t>(i)];
}

struct ShadowRecipe {
  // Of the rectangle, and from its edge to that of the picture; pixels.
  int width;
  int height;
  int margin;
  // Standard deviation and corner radius, pixels.
  double deviation;
  double radius;
  quint64 color;

  auto operator<=>(const ShadowRecipe&) const = default;

  [[nodiscard]] QImage render() const {
    const int w = width + 2 * margin;
    const int h = height + 2 * margin;
    QImage shape(w, h, QImage::Format_Grayscale8);
    shape.fill(Qt::black);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRoundedRect(QRectF(margin, margin, width, height), radius),
                     Qt::white);
    painter.end();

    std::vector<float> cover(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    for (int y = 0; y < h; ++y)
      for (int x = 0; x < w; ++x)
        cover[static_cast<std::size_t>(y * w + x)] = shape.constScanLine(y)[x] / 255.0f;
    blur(cover, w, h);

    const QColor tint(QRgba64::fromRgba64(color));
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < h; ++y) {
      auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < w; ++x) {
        const float alpha = cover[static_cast<std::size_t>(y * w + x)] * tint.alphaF();
        // Nothing stays nothing: no lone grains far outside.
        const float threshold = alpha > 0.001f ? ditherThreshold(x, y) : 0;
        line[x] = ditheredPixel(tint.redF() * alpha, tint.greenF() * alpha, tint.blueF() * alpha,
                                alpha, threshold);
      }
    }
    return image;
  }

 private:
  // Three moving averages come as near to a Gaussian as eight bits can show. Each of n values has
  // the variance (n² − 1) / 12.
  void blur(std::vector<float>& cover, int w, int h) const {
    const double values = std::sqrt(4 * deviation * deviation + 1);
    const int reach = static_cast<int>(std::lround((values - 1) / 2));
    std::vector<float> scratch(static_cast<std::size_t>(std::max(w, h)));
    for (int pass = 0; pass < 3; ++pass) {
      for (int y = 0; y < h; ++y) average(cover.data() + y * w, w, 1, reach, scratch);
      for (int x = 0; x < w; ++x) average(cover.data() + x, h, w, reach, scratch);
    }
  }
};

}  // namespace

OrvexShadow::OrvexShadow(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &OrvexShadow::styleChanged, this, &QQuickItem::update);
}

void OrvexShadow::itemChange(ItemChange change, const ItemChangeData& value) {
  if (change == ItemDevicePixelRatioHasChanged) update();
  QQuickItem::itemChange(change, value);
}

QSGNode* OrvexShadow::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (width() <= 0 || height() <= 0 || color_.alpha() == 0) {
    delete node;
    return nullptr;
  }
  const double scale = window()->effectiveDevicePixelRatio();
  const double deviation = blurRadius_ / 2 * scale;
  const ShadowRecipe recipe{static_cast<int>(std::ceil(width() * scale)),
                            static_cast<int>(std::ceil(height() * scale)),
                            static_cast<int>(std::ceil(3 * deviation)),
                            deviation,
                            radius_ * scale,
                            color_.rgba64()};
  auto* shown = node != nullptr ? static_cast<TextureNode*>(node) : new TextureNode(window());
  const double margin = recipe.margin / scale;
  shown->show(sharedTexture(window(), recipe),
              QRectF(-margin, -margin, recipe.width / scale + 2 * margin,
                     recipe.height / scale + 2 * margin),
              QSGTexture::Linear);
  return shown;
}

}  // namespace orvex
