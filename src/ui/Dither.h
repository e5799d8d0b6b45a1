#pragma once

#include <QRgb>

#include <algorithm>

namespace orvex {

/// A threshold between 0 and 1 for the pixel (x, y), spread so evenly over neighbours that rounding
/// with it instead of with one half turns the steps of a faint gradient into fine, shapeless grain.
[[nodiscard]] inline float ditherThreshold(int x, int y) noexcept {
  // Nothing here is negative, so that cutting off is rounding down, without a call into the
  // library.
  const auto fraction = [](float value) {
    return value - static_cast<float>(static_cast<int>(value));
  };
  return fraction(52.9829189f * fraction(0.06711056f * static_cast<float>(x) +
                                         0.00583715f * static_cast<float>(y)));
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
