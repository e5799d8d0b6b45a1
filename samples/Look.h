#pragma once

#include <QString>

#include <array>
#include <span>

namespace orvex::samples {

/// Red, green and blue from 0 to 1, as a Rec.709 display takes them.
using Rgb = std::array<double, 3>;

/// A look in numbers; left as they are here they change nothing. Applied in the order given.
struct Look {
  /// Of the folder that it belongs into, and its own.
  const char* family = "";
  const char* name = "";
  /// In stops.
  double exposure = 0;
  /// Positive is warmer, and towards magenta.
  double warmth = 0;
  double tint = 0;
  /// How far colour gives way to a grey of these shares.
  double grey = 0;
  Rgb shares{0.2126, 0.7152, 0.0722};
  double saturation = 1;
  /// Of the S-curve, 0 is a straight line.
  double contrast = 0;
  /// How much black is lifted.
  double fade = 0;
  /// Added where it is dark, and where it is light.
  Rgb shadows{0, 0, 0};
  Rgb highlights{0, 0, 0};
  /// How far hues move towards orange and its complement.
  double duotone = 0;
};

/// What `look` makes of a colour; within 0 to 1.
[[nodiscard]] Rgb apply(const Look& look, const Rgb& color);
/// `color` on the way to `target`: 0 is the one, 1 the other.
[[nodiscard]] Rgb mix(const Rgb& color, const Rgb& target, double share);

/// The looks there are, family by family.
[[nodiscard]] std::span<const Look> allLooks();

/// A conversion between ways of writing light, for the technical LUTs.
struct Conversion {
  const char* name = "";
  double (*convert)(double value) = nullptr;
};
[[nodiscard]] std::span<const Conversion> allConversions();

}  // namespace orvex::samples
