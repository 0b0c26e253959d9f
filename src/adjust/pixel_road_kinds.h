// The roads by kind of processor; pixel_roads.cpp chooses among them.
#pragma once

#include "adjust/pixel_roads.h"

#if defined(__x86_64__) || defined(__i386__)
#define SET32_X86_ROADS 1
#endif

// Compilers for Windows don't keep the stack aligned for registers of more than 16 bytes.
#if defined(__x86_64__) && !defined(__MINGW32__)
#define SET32_WIDE_ROADS 1
#endif

namespace set32 {

PixelRoad PortableRoad();

#if SET32_X86_ROADS
PixelRoad Ssse3Road();
#endif
#if SET32_WIDE_ROADS
PixelRoad Avx2Road();
PixelRoad Avx512Road();  // with byte permutation across a register (VBMI)
#endif

}  // namespace set32
