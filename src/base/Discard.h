#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace orvex {

/// Lets go of `value`, which can be large, on a thread of its own: freeing some hundred thousand
/// small pieces takes longer than a frame. Not on one of the toolkit's threads, which the main
/// thread waits for when it fills large areas. Where no thread can be had, lets go of it here.
template <typename T>
void discard(T value) try {
  std::thread([held = std::move(value)] {}).detach();
} catch (const std::system_error&) {
}

}  // namespace orvex
