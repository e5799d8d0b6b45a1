#pragma once

#include <QString>

namespace orvex::samples {

/// Where the parts of a library lie below its folder.
inline constexpr auto kLutFolder = "LUT";
inline constexpr auto kMotionFolder = "Motion Templates";
inline constexpr auto kFxPlugFolder = "FxPlug";
inline constexpr auto kEffectFolder = "LV2";

/// Fills `folder` with LUTs, Motion templates with pictures, plug-in bundles and audio
/// effects. Throws
/// `DescribedError`.
void makeLibrary(const QString& folder);

}  // namespace orvex::samples
