#pragma once

#include <QImage>

namespace orvex {

/// A picture of ours to judge a look by when the host gives none: an evening sky over hills, skin
/// tones, and ramps of grey and of colour. `size` is in pixels.
[[nodiscard]] QImage testPicture(const QSize& size);

}  // namespace orvex
