#include "apps/data-source/window/global_memory.h"

#include <limits>

namespace data_source {

twain::Handle GlobalMemory::Allocate(std::size_t size) {
  if (size > std::numeric_limits<std::uint32_t>::max()) return nullptr;
  return lent_.allocate != nullptr ? lent_.allocate(static_cast<std::uint32_t>(size))
                                   : GlobalAlloc(GMEM_MOVEABLE, size);
}

void GlobalMemory::Free(twain::Handle handle) {
  if (lent_.free != nullptr) {
    lent_.free(handle);
  } else {
    GlobalFree(handle);
  }
}

void* GlobalMemory::Lock(twain::Handle handle) {
  return lent_.lock != nullptr ? lent_.lock(handle) : GlobalLock(handle);
}

void GlobalMemory::Unlock(twain::Handle handle) {
  if (lent_.unlock != nullptr) {
    lent_.unlock(handle);
  } else {
    GlobalUnlock(handle);
  }
}

}  // namespace data_source
