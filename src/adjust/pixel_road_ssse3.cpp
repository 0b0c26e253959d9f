// SSSE3: bytes go anywhere within 16.
#include "adjust/pixel_road_kinds.h"

#if SET32_X86_ROADS

#include <tmmintrin.h>

#include <algorithm>
#include <cstring>

#include "adjust/pixel_road_shuffles.h"

// A 32-bit host may call with a stack that is aligned for 4 bytes alone.
#if defined(__i386__)
#define SET32_ROAD [[gnu::target("ssse3"), gnu::force_align_arg_pointer]]
#else
#define SET32_ROAD [[gnu::target("ssse3")]]
#endif
#define SET32_ROAD_INLINE [[gnu::always_inline, gnu::target("ssse3")]] inline

namespace set32 {

namespace {

using Register = __m128i;
constexpr std::size_t laneBytes = 16;

SET32_ROAD_INLINE Register Load(const void* from) {
  return _mm_loadu_si128(static_cast<const __m128i*>(from));
}
SET32_ROAD_INLINE void Store(void* to, Register bytes) {
  _mm_storeu_si128(static_cast<__m128i*>(to), bytes);
}
SET32_ROAD_INLINE Register Zero() {
  return _mm_setzero_si128();
}
SET32_ROAD_INLINE Register Words(std::int16_t word) {
  return _mm_set1_epi16(word);
}
SET32_ROAD_INLINE Register InterleaveLow(Register a, Register b) {
  return _mm_unpacklo_epi8(a, b);
}
SET32_ROAD_INLINE Register InterleaveHigh(Register a, Register b) {
  return _mm_unpackhi_epi8(a, b);
}
SET32_ROAD_INLINE Register Pack(Register low, Register high) {
  return _mm_packus_epi16(low, high);
}
SET32_ROAD_INLINE Register Add(Register a, Register b) {
  return _mm_add_epi16(a, b);
}
SET32_ROAD_INLINE Register Subtract(Register a, Register b) {
  return _mm_sub_epi16(a, b);
}
SET32_ROAD_INLINE Register Multiply(Register a, Register b) {
  return _mm_mullo_epi16(a, b);
}
SET32_ROAD_INLINE Register RoundedProduct(Register a, Register b) {
  return _mm_mulhrs_epi16(a, b);
}

template <int bits>
SET32_ROAD_INLINE Register ShiftUp(Register words) {
  return _mm_slli_epi16(words, bits);
}

SET32_ROAD_INLINE Register LoadWords(const std::uint8_t* from) {
  return _mm_unpacklo_epi8(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)), Zero());
}
SET32_ROAD_INLINE Register PackInOrder(Register first, Register second) {
  return Pack(first, second);
}

SET32_ROAD_INLINE Register LoadLanes(const std::uint8_t* from) {
  return Load(from);
}
SET32_ROAD_INLINE void StoreLanes(std::uint8_t* to, Register bytes) {
  Store(to, bytes);
}
SET32_ROAD_INLINE Register Shuffled(Register bytes, const Shuffle& places) {
  return _mm_shuffle_epi8(bytes, Load(places.data()));
}
SET32_ROAD_INLINE Register Or(Register a, Register b) {
  return _mm_or_si128(a, b);
}

#include "adjust/pixel_lanes.inc"

#include "adjust/pixel_kernels.inc"

// The levels of four pixels, one lookup each, in a word.
SET32_ROAD_INLINE int FourLevels(const std::uint8_t* from, const std::uint8_t* table) {
  return table[from[1]] | table[from[4]] << 8 | table[from[7]] << 16 | table[from[10]] << 24;
}

SET32_ROAD void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  constexpr std::size_t blockPixels = 16;
  const Register spread0 = _mm_setr_epi8(0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5);
  const Register spread1 = _mm_setr_epi8(5, 5, 6, 6, 6, 7, 7, 7, 8, 8, 8, 9, 9, 9, 10, 10);
  const Register spread2 = _mm_setr_epi8(10, 11, 11, 11, 12, 12, 12, 13, 13, 13, 14, 14, 14, 15, 15, 15);
  for (; pixels >= blockPixels; pixels -= blockPixels, from += 3 * blockPixels, to += 3 * blockPixels) {
    AskAhead(from);
    AskAhead(to);
    const Register levels = _mm_setr_epi32(FourLevels(from, table), FourLevels(from + 12, table),
                                           FourLevels(from + 24, table), FourLevels(from + 36, table));
    Store(to, _mm_shuffle_epi8(levels, spread0));
    Store(to + laneBytes, _mm_shuffle_epi8(levels, spread1));
    Store(to + 2 * laneBytes, _mm_shuffle_epi8(levels, spread2));
  }
  PortableRoad().levels(from, to, pixels, table);
}

}  // namespace

// Nothing here takes three tables faster than portable code.
PixelRoad Ssse3Road() {
  PixelRoad road = PortableRoad();
  road.name = "SSSE3";
  road.levels = Levels;
  road.sharpen = Sharpen;
  road.colours = Colours;
  return road;
}

}  // namespace set32

#endif
