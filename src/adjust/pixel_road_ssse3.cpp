// SSSE3: bytes go anywhere within 16.
#include "adjust/pixel_road_kinds.h"

#if SET32_X86_ROADS

#include <tmmintrin.h>

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
SET32_ROAD_INLINE Register WordPairs(int even, int odd) {
  return Words(BytePair(even, odd));
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
SET32_ROAD_INLINE Register Least(Register a, Register b) {
  return _mm_min_epi16(a, b);
}
SET32_ROAD_INLINE Register Greatest(Register a, Register b) {
  return _mm_max_epi16(a, b);
}
SET32_ROAD_INLINE Register RoundedProduct(Register a, Register b) {
  return _mm_mulhrs_epi16(a, b);
}
SET32_ROAD_INLINE Register WeighedPairs(Register bytes, Register weights) {
  return _mm_maddubs_epi16(bytes, weights);
}

template <int bits>
SET32_ROAD_INLINE Register ShiftUp(Register words) {
  return _mm_slli_epi16(words, bits);
}

struct Bands {
  Register blue;
  Register green;
  Register red;
};

SET32_ROAD_INLINE Register Gathered(Register a, Register b, Register c, const Gather& gather) {
  return _mm_or_si128(
      _mm_or_si128(_mm_shuffle_epi8(a, Load(gather[0].data())), _mm_shuffle_epi8(b, Load(gather[1].data()))),
      _mm_shuffle_epi8(c, Load(gather[2].data())));
}

SET32_ROAD_INLINE Bands SplitPixels(const std::uint8_t* from) {
  const Register a = Load(from);
  const Register b = Load(from + laneBytes);
  const Register c = Load(from + 2 * laneBytes);
  return {Gathered(a, b, c, splitGather[0]), Gathered(a, b, c, splitGather[1]), Gathered(a, b, c, splitGather[2])};
}

SET32_ROAD_INLINE void JoinPixels(const Bands& bands, std::uint8_t* to) {
  Store(to, Gathered(bands.blue, bands.green, bands.red, joinGather[0]));
  Store(to + laneBytes, Gathered(bands.blue, bands.green, bands.red, joinGather[1]));
  Store(to + 2 * laneBytes, Gathered(bands.blue, bands.green, bands.red, joinGather[2]));
}

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
  if (!fewRegisters) road.sharpen = Sharpen;
  road.colours = Colours;
  return road;
}

}  // namespace set32

#endif
