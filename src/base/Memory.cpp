#include "base/Memory.h"

#ifdef __linux__
#include <malloc.h>
#endif

namespace orvex {

void returnFreeMemory() noexcept {
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

}  // namespace orvex
