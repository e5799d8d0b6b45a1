#pragma once

#include "lut/CubeLattice.h"

#include <QImage>

namespace orvex {

/// The size of every preview, in pixels: a card's picture at about twice its points.
inline constexpr QSize kPreviewSize{384, 216};

/// `picture` brought to `kPreviewSize`, opaque: what sticks out of that shape is cut evenly. Null
/// for an empty picture.
[[nodiscard]] QImage previewSource(const QImage& picture);

/// An opaque picture of `kPreviewSize` as `lattice` makes it.
[[nodiscard]] QImage graded(const CubeLattice& lattice, const QImage& source);

}  // namespace orvex
