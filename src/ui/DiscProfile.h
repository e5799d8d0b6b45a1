#pragma once

#include <array>
#include <cstddef>

namespace orvex {

/// The brightness of a disc after a Gaussian blur, by distance from its centre; 1 is the unblurred
/// disc. All lengths are in one unit of the caller's choice.
class DiscProfile {
 public:
  /// `radius` of the disc and standard `deviation` of the blur, both above 0.
  DiscProfile(double radius, double deviation);

  /// The distance from which on the profile is 0.
  [[nodiscard]] static double reach(double radius, double deviation) noexcept {
    return radius + 3 * deviation;
  }
  [[nodiscard]] float at(float distance) const noexcept {
    const float place = distance * stepsPerUnit_;
    if (!(place < static_cast<float>(kSteps))) return 0;
    const auto index = static_cast<std::size_t>(place);
    const float part = place - static_cast<float>(index);
    return table_[index] + (table_[index + 1] - table_[index]) * part;
  }

 private:
  static constexpr int kSteps = 256;

  float stepsPerUnit_;
  // Even steps from the centre to the reach, and one more so that the last step has an end.
  std::array<float, kSteps + 2> table_;
};

}  // namespace orvex
