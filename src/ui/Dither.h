#pragma once

#include <QRgb>

#include <cmath>

namespace orvex {

/// A threshold between 0 and 1 for the pixel (x, y), spread so evenly over neighbours that rounding
/// with it instead of with one half turns the steps of a faint gradient into fine, shapeless grain.
[[nodiscard]] inline float ditherThreshold(int x, int y) noexcept {
  const float mixed = 0.06711056f * static_cast<float>(x) + 0.00583715f * static_cast<float>(y);
  const float spread = 52.9829189f * (mixed - std::floor(mixed));
  return spread - std::floor(spread);
}

/// The premultiplied pixel of the colour whose components, already multiplied with `alpha`, are
/// given from 0 to 1. One threshold for all four keeps every colour within its alpha.
[[nodiscard]] inline QRgb ditheredPixel(float red, float green, float blue, float alpha,
                                        float threshold) noexcept {
  const auto step = [threshold](float component) {
    return static_cast<int>(std::min(component * 255.0f + threshold, 255.0f));
  };
  return qRgba(step(red), step(green), step(blue), step(alpha));
}

}  // namespace orvex
