#pragma once

#include "samples/Look.h"

#include <QByteArray>

#include <functional>

namespace orvex::samples {

/// The text of a `.cube` file with `size` points on each edge.
[[nodiscard]] QByteArray cubeFile(const QString& title, int size,
                                  const std::function<Rgb(const Rgb&)>& color);
/// The same for a curve of `size` points.
[[nodiscard]] QByteArray curveFile(const QString& title, int size, double (*value)(double));

}  // namespace orvex::samples
