#include "ui/color/TestPicture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <array>
#include <cmath>

namespace orvex {
namespace {

// Lengths are parts of the picture's height; it is 16 by 9 of them.
constexpr double kAspect = 16.0 / 9;
constexpr double kRampsTop = 0.8;

void drawSky(QPainter& painter) {
  QLinearGradient sky(0, 0, 0, kRampsTop);
  sky.setColorAt(0.0, QColor(38, 74, 138));
  sky.setColorAt(0.36, QColor(98, 142, 196));
  sky.setColorAt(0.62, QColor(224, 184, 172));
  sky.setColorAt(0.8, QColor(250, 178, 104));
  sky.setColorAt(1.0, QColor(244, 128, 62));
  painter.fillRect(QRectF(0, 0, kAspect, kRampsTop), sky);

  const QPointF sun(1.44, 0.4);
  QRadialGradient glow(sun, 0.5);
  glow.setColorAt(0.0, QColor(255, 250, 230, 255));
  glow.setColorAt(0.13, QColor(255, 246, 214, 255));
  glow.setColorAt(0.16, QColor(255, 232, 170, 150));
  glow.setColorAt(0.5, QColor(255, 206, 128, 54));
  glow.setColorAt(1.0, QColor(255, 190, 110, 0));
  painter.fillRect(QRectF(0, 0, kAspect, kRampsTop), glow);
}

// A line of hills whose height is a sum of two waves.
void drawHills(QPainter& painter, double base, double height, double phase, const QColor& far,
               const QColor& near) {
  QPainterPath path(QPointF(0, kRampsTop));
  constexpr int kSteps = 96;
  for (int i = 0; i <= kSteps; ++i) {
    const double x = kAspect * i / kSteps;
    path.lineTo(x, base - height * (std::sin(2.4 * x + phase) + 0.45 * std::sin(6.1 * x - phase)));
  }
  path.lineTo(kAspect, kRampsTop);
  path.closeSubpath();
  QLinearGradient shade(0, base - height, 0, kRampsTop);
  shade.setColorAt(0, far);
  shade.setColorAt(1, near);
  painter.fillPath(path, shade);
}

// Skin from light to dark, on balls: each with the tones of its lit and of its shaded side.
void drawSkin(QPainter& painter) {
  struct Skin {
    QColor lit;
    QColor tone;
    QColor shade;
  };
  const std::array<Skin, 4> skins{{{{255, 226, 206}, {234, 188, 164}, {158, 106, 88}},
                                   {{240, 198, 162}, {206, 152, 114}, {124, 78, 54}},
                                   {{204, 148, 108}, {156, 102, 68}, {82, 48, 32}},
                                   {{148, 100, 74}, {96, 60, 42}, {42, 25, 18}}}};
  constexpr double kRadius = 0.125;
  for (std::size_t i = 0; i < skins.size(); ++i) {
    const QPointF centre(0.21 + 0.28 * static_cast<double>(i), 0.63);
    QRadialGradient light(centre, kRadius * 1.9, centre + QPointF(0.055, -0.055));
    light.setColorAt(0.0, skins[i].lit);
    light.setColorAt(0.42, skins[i].tone);
    light.setColorAt(1.0, skins[i].shade);
    painter.setBrush(light);
    painter.drawEllipse(centre, kRadius, kRadius);
  }
}

void drawRamps(QPainter& painter) {
  constexpr double kHeight = (1 - kRampsTop) / 2;
  constexpr int kSteps = 11;
  QLinearGradient grey(0, 0, kAspect, 0);
  grey.setColorAt(0, Qt::black);
  grey.setColorAt(1, Qt::white);
  painter.fillRect(QRectF(0, kRampsTop, kAspect, kHeight / 2), grey);
  for (int i = 0; i < kSteps; ++i) {
    const int level = 255 * i / (kSteps - 1);
    painter.fillRect(
        QRectF(kAspect * i / kSteps, kRampsTop + kHeight / 2, kAspect / kSteps + 0.01, kHeight / 2),
        QColor(level, level, level));
  }
  QLinearGradient hue(0, 0, kAspect, 0);
  for (int i = 0; i <= 12; ++i)
    hue.setColorAt(i / 12.0, QColor::fromHsvF(i % 12 / 12.0F, 0.9F, 0.94F));
  painter.fillRect(QRectF(0, kRampsTop + kHeight, kAspect, kHeight), hue);
  QLinearGradient depth(0, kRampsTop + kHeight, 0, 1);
  depth.setColorAt(0, QColor(255, 255, 255, 110));
  depth.setColorAt(0.5, QColor(128, 128, 128, 0));
  depth.setColorAt(1, QColor(0, 0, 0, 120));
  painter.fillRect(QRectF(0, kRampsTop + kHeight, kAspect, kHeight), depth);
}

}  // namespace

QImage testPicture(const QSize& size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.scale(size.width() / kAspect, size.height());
  drawSky(painter);
  drawHills(painter, 0.66, 0.05, 0.4, QColor(146, 108, 128), QColor(108, 92, 108));
  drawHills(painter, 0.72, 0.035, 2.3, QColor(72, 84, 62), QColor(34, 50, 34));
  drawSkin(painter);
  drawRamps(painter);
  return image;
}

}  // namespace orvex
