// The system's global memory, by the functions of the manager where it lends them.
#pragma once

#include <windows.h>

#include "apps/data-source/core/surroundings.h"

namespace data_source {

class GlobalMemory final : public SharedMemory {
 public:
  twain::Handle Allocate(std::size_t size) override;
  void Free(twain::Handle handle) override;
  void* Lock(twain::Handle handle) override;
  void Unlock(twain::Handle handle) override;
  std::size_t Size(twain::Handle handle) override { return GlobalSize(handle); }
  void Borrow(const twain::EntryPoint& functions) override { lent_ = functions; }

  twain::ManagerEntry Manager() const { return lent_.manager; }

 private:
  twain::EntryPoint lent_{};
};

}  // namespace data_source
