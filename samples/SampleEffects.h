#pragma once

#include <QString>

namespace orvex::samples {

/// Writes LV2 bundles that describe audio effects into `folder`. They are there to be listed, not
/// to be heard: what stands for their programs is empty. Throws `DescribedError`.
void makeEffects(const QString& folder);

}  // namespace orvex::samples
