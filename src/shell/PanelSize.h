#pragma once

#include <QSizeF>

namespace orvex {

/// The panel's own size, in points.
inline constexpr QSizeF kPanelSize{1040, 780};
/// What is asked for below this, in points, is not meant.
inline constexpr int kLeastPanelExtent = 320;

}  // namespace orvex
