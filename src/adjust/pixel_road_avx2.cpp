// AVX2: as SSSE3, in two halves of 16 bytes at once.
#include "adjust/pixel_road_kinds.h"

#if SET32_X86_ROADS

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "adjust/pixel_road_shuffles.h"

#define SET32_ROAD [[gnu::target("avx2")]]
#define SET32_ROAD_INLINE [[gnu::always_inline, gnu::target("avx2")]] inline

namespace set32 {

namespace {

using Register = __m256i;
constexpr std::size_t laneBytes = 32;

SET32_ROAD_INLINE Register Load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
SET32_ROAD_INLINE void Store(void* to, Register bytes) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), bytes);
}
SET32_ROAD_INLINE Register Zero() {
  return _mm256_setzero_si256();
}
SET32_ROAD_INLINE Register Words(std::int16_t word) {
  return _mm256_set1_epi16(word);
}
SET32_ROAD_INLINE Register InterleaveLow(Register a, Register b) {
  return _mm256_unpacklo_epi8(a, b);
}
SET32_ROAD_INLINE Register InterleaveHigh(Register a, Register b) {
  return _mm256_unpackhi_epi8(a, b);
}
SET32_ROAD_INLINE Register Pack(Register low, Register high) {
  return _mm256_packus_epi16(low, high);
}
SET32_ROAD_INLINE Register Add(Register a, Register b) {
  return _mm256_add_epi16(a, b);
}
SET32_ROAD_INLINE Register Subtract(Register a, Register b) {
  return _mm256_sub_epi16(a, b);
}
SET32_ROAD_INLINE Register Multiply(Register a, Register b) {
  return _mm256_mullo_epi16(a, b);
}
SET32_ROAD_INLINE Register RoundedProduct(Register a, Register b) {
  return _mm256_mulhrs_epi16(a, b);
}

template <int bits>
SET32_ROAD_INLINE Register ShiftUp(Register words) {
  return _mm256_slli_epi16(words, bits);
}

const __m128i* Half(const void* from) {
  return static_cast<const __m128i*>(from);
}
__m128i* Half(void* to) {
  return static_cast<__m128i*>(to);
}

SET32_ROAD_INLINE Register LoadWords(const std::uint8_t* from) {
  return _mm256_cvtepu8_epi16(_mm_loadu_si128(Half(from)));
}
SET32_ROAD_INLINE Register PackInOrder(Register first, Register second) {
  return _mm256_permute4x64_epi64(Pack(first, second), 0b11011000);
}

constexpr std::ptrdiff_t halfPixels = 48;  // bytes of the sixteen pixels that a half holds

SET32_ROAD_INLINE Register LoadLanes(const std::uint8_t* from) {
  return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(Half(from))),
                                 _mm_loadu_si128(Half(from + halfPixels)), 1);
}
SET32_ROAD_INLINE void StoreLanes(std::uint8_t* to, Register bytes) {
  _mm_storeu_si128(Half(to), _mm256_castsi256_si128(bytes));
  _mm_storeu_si128(Half(to + halfPixels), _mm256_extracti128_si256(bytes, 1));
}
SET32_ROAD_INLINE Register Shuffled(Register bytes, const Shuffle& places) {
  return _mm256_shuffle_epi8(bytes, _mm256_broadcastsi128_si256(_mm_loadu_si128(Half(places.data()))));
}
SET32_ROAD_INLINE Register Or(Register a, Register b) {
  return _mm256_or_si256(a, b);
}

#include "adjust/pixel_lanes.inc"

#include "adjust/pixel_kernels.inc"

// A table in sixteenths, in both halves of a register. Each but the first of eight holds its difference from the one
// before it: a level goes through all up to its own, the differences cancel, and the ones behind give nothing.
struct ByteTable {
  Register part[16];
};

constexpr int partsOfHalf = 8;
constexpr int partBytes = 16;

SET32_ROAD_INLINE Register Part(const std::uint8_t* table, int index) {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(Half(table + std::ptrdiff_t{partBytes} * index)));
}

SET32_ROAD_INLINE ByteTable LoadByteTable(const std::uint8_t* table) {
  ByteTable parts;
  for (int i = 0; i < 2 * partsOfHalf; ++i) {
    const bool first = i % partsOfHalf == 0;
    parts.part[i] = first ? Part(table, i) : _mm256_xor_si256(Part(table, i), Part(table, i - 1));
  }
  return parts;
}

// The levels of the other half of the table have their highest bit set, keep it, and find nothing.
SET32_ROAD_INLINE Register LookUpHalf(const Register* parts, Register levels, Register found) {
  const Register sixteen = _mm256_set1_epi8(partBytes);
  for (int i = 0; i < partsOfHalf; ++i) {
    found = _mm256_xor_si256(found, _mm256_shuffle_epi8(parts[i], levels));
    levels = _mm256_subs_epi8(levels, sixteen);
  }
  return found;
}

SET32_ROAD_INLINE Register LookUp(const ByteTable& table, Register levels) {
  const Register highest = _mm256_set1_epi8(-0x80);
  const Register low = LookUpHalf(table.part, levels, Zero());
  return LookUpHalf(table.part + partsOfHalf, _mm256_xor_si256(levels, highest), low);
}

SET32_ROAD void OneTable(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables) {
  const ByteTable table = LoadByteTable(tables.levels.blue);
  std::size_t registers = pixels / laneBytes * 3;
  pixels %= laneBytes;
  for (; registers > 0; --registers, from += laneBytes, to += laneBytes) {
    AskAhead(from);
    AskAhead(to);
    Store(to, LookUp(table, Load(from)));
  }
  PortableRoad().tables(from, to, pixels, tables);
}

}  // namespace

// Nothing here looks up a level of three tables faster than the road below it.
PixelRoad Avx2Road() {
  PixelRoad road = Ssse3Road();
  road.name = "AVX2";
  road.oneTable = OneTable;
  road.sharpen = Sharpen;
  road.colours = Colours;
  return road;
}

}  // namespace set32

#endif
