#pragma once

#include <QString>

namespace orvex::samples {

/// Where the parts of a library lie below its folder.
inline constexpr auto kLutFolder = "LUT";
inline constexpr auto kMotionFolder = "Motion Templates";
inline constexpr auto kFxPlugFolder = "FxPlug";

/// Fills `folder` with LUTs, Motion templates with pictures and plug-in bundles. Throws
/// `DescribedError`.
void makeLibrary(const QString& folder);

}  // namespace orvex::samples
