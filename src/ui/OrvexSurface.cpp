#include "ui/OrvexSurface.h"

#include "ui/ContinuousCorners.h"
#include "ui/Dither.h"
#include "ui/SharedTexture.h"

#include <QPainter>
#include <QRgba64>

#include <array>
#include <compare>

namespace orvex {
namespace {

struct SurfaceRecipe {
  // Pixels.
  int width;
  int height;
  // Pixels per point.
  double scale;
  quint64 startColor;
  quint64 endColor;
  quint64 outlineColor;
  double outlineWidth;
  double radius;

  auto operator<=>(const SurfaceRecipe&) const = default;

  [[nodiscard]] QImage render() const {
    QImage image = gradient();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds(0, 0, width, height);
    QImage mask(width, height, QImage::Format_ARGB32_Premultiplied);
    mask.fill(Qt::transparent);
    QPainter maskPainter(&mask);
    maskPainter.setRenderHint(QPainter::Antialiasing);
    maskPainter.fillPath(continuousRoundedRect(bounds, radius * scale), Qt::black);
    maskPainter.end();
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);

    const double line = outlineWidth * scale;
    if (line > 0) {
      const double half = line / 2;
      painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
      painter.setPen(QPen(QColor(QRgba64::fromRgba64(outlineColor)), line));
      painter.drawPath(
          continuousRoundedRect(bounds.adjusted(half, half, -half, -half), radius * scale - half));
    }
    return image;
  }

 private:
  [[nodiscard]] QImage gradient() const {
    // Red, green, blue, opacity.
    const auto parts = [](quint64 packed) {
      const QColor color(QRgba64::fromRgba64(packed));
      return std::array{color.redF(), color.greenF(), color.blueF(), color.alphaF()};
    };
    const auto start = parts(startColor);
    const auto end = parts(endColor);
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    const double length = static_cast<double>(width) * width + static_cast<double>(height) * height;
    for (int y = 0; y < height; ++y) {
      auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < width; ++x) {
        const auto t = static_cast<float>(
            (static_cast<double>(x) * width + static_cast<double>(y) * height) / length);
        const auto mix = [&](std::size_t part) {
          return start[part] + (end[part] - start[part]) * t;
        };
        const float alpha = mix(3);
        line[x] = ditheredPixel(mix(0) * alpha, mix(1) * alpha, mix(2) * alpha, alpha,
                                ditherThreshold(x, y));
      }
    }
    return image;
  }
};

}  // namespace

OrvexSurface::OrvexSurface(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &OrvexSurface::styleChanged, this, &QQuickItem::update);
}

void OrvexSurface::itemChange(ItemChange change, const ItemChangeData& value) {
  if (change == ItemDevicePixelRatioHasChanged) update();
  QQuickItem::itemChange(change, value);
}

QSGNode* OrvexSurface::updatePaintNode(QSGNode* node, UpdatePaintNodeData*) {
  if (width() <= 0 || height() <= 0) {
    delete node;
    return nullptr;
  }
  const double scale = window()->effectiveDevicePixelRatio();
  const SurfaceRecipe recipe{static_cast<int>(std::ceil(width() * scale)),
                             static_cast<int>(std::ceil(height() * scale)),
                             scale,
                             startColor_.rgba64(),
                             endColor_.rgba64(),
                             outlineColor_.rgba64(),
                             outlineWidth_,
                             radius_};
  auto* shown = node != nullptr ? static_cast<TextureNode*>(node) : new TextureNode(window());
  shown->show(sharedTexture(window(), recipe),
              QRectF(0, 0, recipe.width / scale, recipe.height / scale), QSGTexture::Linear);
  return shown;
}

}  // namespace orvex
