#pragma once

#include <QThreadPool>

#include <utility>

namespace orvex {

/// Lets go of `value`, which can be large, on another thread: freeing some hundred thousand small
/// pieces takes longer than a frame.
template <typename T>
void discard(T value) {
  QThreadPool::globalInstance()->start([held = std::move(value)] {});
}

}  // namespace orvex
