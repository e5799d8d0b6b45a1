#pragma once

#include <QByteArray>
#include <QList>

namespace orvex {

/// The folders of all LV2 bundles: those with a regular file `manifest.ttl` in the folders of
/// `searchPath`, which is written as the environment variable LV2_PATH is. Absolute, each once, in
/// the order of the path and by name within a folder.
[[nodiscard]] QList<QByteArray> lv2Bundles(const QByteArray& searchPath);

/// The environment's LV2_PATH, else the customary places.
[[nodiscard]] QByteArray lv2SearchPath();

}  // namespace orvex
