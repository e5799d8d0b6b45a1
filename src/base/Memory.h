#pragma once

namespace orvex {

/// Gives the memory that was freed, and that the allocator keeps between what is still in use, back
/// to the system. Takes some milliseconds; any thread.
void returnFreeMemory() noexcept;

}  // namespace orvex
