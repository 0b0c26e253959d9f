// Pointers in 32-bit words.
//
// ScanSettings is a stored format, so its one pointer (frameCommand) is a 32-bit word on every build. What such a
// word points to lives below 4 GB: LowMemory holds one object there, and the word is then a true pointer everywhere.
// A word of 0 points nowhere. This header alone asks the system for memory by address, and so names systems.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>

#if UINTPTR_MAX > 0xFFFFFFFFU
#if defined(_WIN32)
// Declared here rather than by the system's header, which would bring its macros into every host's file.
extern "C" __declspec(dllimport) void* __stdcall VirtualAlloc(void* address, std::size_t size, unsigned long type,
                                                              unsigned long protect);
extern "C" __declspec(dllimport) int __stdcall VirtualFree(void* address, std::size_t size, unsigned long type);
#else
#include <sys/mman.h>
#endif
#endif

namespace set32 {

namespace detail {

inline constexpr std::size_t lowBlock = 0x10000;

inline void* At(std::uintptr_t address) {
  return reinterpret_cast<void*>(address);  // NOLINT(performance-no-int-to-ptr): a number is all that there is
}

// A zeroed block whose addresses fit into 32 bits; null when there is none.
inline void* AllocateLow() {
#if UINTPTR_MAX <= 0xFFFFFFFFU
  return ::operator new(lowBlock, std::nothrow);
#else
  for (std::uintptr_t hint = 0x10000000U; hint < 0xF0000000U; hint += 0x1000000U) {
#if defined(_WIN32)
    constexpr unsigned long commitAndReserve = 0x3000, readWrite = 0x04;
    if (void* block = VirtualAlloc(At(hint), lowBlock, commitAndReserve, readWrite)) return block;
#else
    void* block = mmap(At(hint), lowBlock, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) continue;
    if (reinterpret_cast<std::uintptr_t>(block) + lowBlock <= 0xFFFFFFFFU) return block;
    munmap(block, lowBlock);
#endif
  }
  return nullptr;
#endif
}

inline void FreeLow(void* block) {
#if UINTPTR_MAX <= 0xFFFFFFFFU
  ::operator delete(block);
#elif defined(_WIN32)
  VirtualFree(block, 0, 0x8000);  // release
#else
  munmap(block, lowBlock);
#endif
}

}  // namespace detail

// One object of a plain type below 4 GB. `Get` is null, and `Word` 0, when no such memory could be had.
template <typename T>
class LowMemory {
  static_assert(std::is_trivially_destructible_v<T> && sizeof(T) <= detail::lowBlock);

 public:
  LowMemory() : block_(detail::AllocateLow()) {
    if (block_ != nullptr) object_ = std::construct_at(static_cast<T*>(block_));
  }
  ~LowMemory() {
    if (block_ != nullptr) detail::FreeLow(block_);
  }
  LowMemory(const LowMemory&) = delete;
  LowMemory& operator=(const LowMemory&) = delete;

  T* Get() const { return object_; }
  std::uint32_t Word() const { return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(object_)); }

 private:
  void* block_;
  T* object_ = nullptr;
};

// The object that a word points to. Only for a word that its sender promised to be a pointer.
template <typename T>
const T* FromWord(std::uint32_t word) {
  return static_cast<const T*>(detail::At(word));
}

// The same for a message's parameter.
template <typename T>
const T* FromParameter(std::intptr_t parameter) {
  return static_cast<const T*>(detail::At(static_cast<std::uintptr_t>(parameter)));
}

}  // namespace set32
