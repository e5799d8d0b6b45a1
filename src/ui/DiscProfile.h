#pragma once

#include <array>

namespace orvex {

/// The brightness of a disc after a Gaussian blur, by distance from its centre; 1 is the unblurred
/// disc. All lengths are in one unit of the caller's choice.
class DiscProfile {
 public:
  /// `radius` of the disc and standard `deviation` of the blur, both above 0.
  DiscProfile(double radius, double deviation);

  /// From here on the profile is 0.
  [[nodiscard]] double reach() const noexcept { return reach_; }
  [[nodiscard]] float at(float distance) const noexcept;

 private:
  double reach_;
  // Even steps from the centre to the reach, and one more so that the last step has an end.
  std::array<float, 258> table_;
};

}  // namespace orvex
