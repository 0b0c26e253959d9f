// The roads by kind of processor; pixel_roads.cpp chooses among them.
#pragma once

#include "adjust/pixel_roads.h"

#if defined(__x86_64__) || defined(__i386__)
#define SET32_X86_ROADS 1
#endif

namespace set32 {

PixelRoad PortableRoad();

#if SET32_X86_ROADS
PixelRoad Ssse3Road();
PixelRoad Avx2Road();
PixelRoad Avx512Road();  // with byte permutation across a register (VBMI)

// 32-bit programs have eight vector registers: work that keeps more values about is faster on a road below.
inline constexpr bool fewRegisters = sizeof(void*) == 4;
#endif

}  // namespace set32
