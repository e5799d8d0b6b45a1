#pragma once

#include <QString>

namespace orvex::samples {

/// Which state of the vendor's folder: at first, or after one pack has a newer version.
enum class PackState { First, Updated };

/// Fills `folder` with content packs and a release manifest as `orvex cloud build` takes them.
/// Throws `DescribedError`.
void makePacks(const QString& folder, PackState state);

}  // namespace orvex::samples
