#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvex {

/// Equal columns side by side that fill a width. All lengths are in points. The columns' edges are
/// whole ones, so that outlines and texts stay sharp.
class OrvexColumns {
 public:
  /// As many as fit, at least 1 and at most `maximum`.
  OrvexColumns(double width, double minimumWidth, double spacing,
               int maximum = std::numeric_limits<int>::max())
      : count_(minimumWidth + spacing > 0
                   ? static_cast<int>(
                         std::clamp(std::floor((width + spacing) / (minimumWidth + spacing)), 1.0,
                                    std::max(1.0, static_cast<double>(maximum))))
                   : 1),
        pitch_((width + spacing) / count_),
        spacing_(spacing) {}

  [[nodiscard]] int count() const noexcept { return count_; }
  /// Of a column, before its edges are made whole.
  [[nodiscard]] double meanWidth() const noexcept { return pitch_ - spacing_; }
  [[nodiscard]] double left(int column) const { return std::round(column * pitch_); }
  [[nodiscard]] double width(int column) const {
    return left(column + 1) - left(column) - spacing_;
  }

 private:
  int count_;
  double pitch_;
  double spacing_;
};

}  // namespace orvex
