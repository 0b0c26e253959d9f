// The roads by kind of processor; pixel_roads.cpp chooses among them.
#pragma once

#include "adjust/pixel_roads.h"

#if defined(__x86_64__) || defined(__i386__)
#define SET32_X86_ROADS 1
#endif

namespace set32 {

// Rows lie behind one another, so what a loop needs next is known long before a processor guesses it: at each line of
// the cache it asks for the one so far ahead. To ask for what isn't there does nothing.
inline constexpr std::size_t cacheLine = 64;

[[gnu::always_inline]] inline void AskAhead(const std::uint8_t* at) {
  constexpr std::uintptr_t ahead = 2048;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a pointer may not go past the end of its row, a number may
  __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(at) + ahead));
}

// The luma in 256ths, less green's, which is the rest. Defined in another file than its users: a compiler that knew
// the numbers would take a chain of shifts and sums for one multiplication.
struct LumaShares {
  std::int16_t red;
  std::int16_t blue;
};
extern const LumaShares lumaShares;

PixelRoad PortableRoad();

#if SET32_X86_ROADS
PixelRoad Ssse3Road();
PixelRoad Avx2Road();
PixelRoad Avx512Road();  // with byte permutation across a register (VBMI)

// 32-bit programs have eight vector registers: work that keeps more values about is faster on a road below.
inline constexpr bool fewRegisters = sizeof(void*) == 4;
#endif

}  // namespace set32
