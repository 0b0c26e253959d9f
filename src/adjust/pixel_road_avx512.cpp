// AVX-512 with VBMI: a table of 256 bytes lives in four registers, and any byte of two registers can go anywhere.
#include "adjust/pixel_road_kinds.h"

#if SET32_X86_ROADS

#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "adjust/pixel_road_shuffles.h"

#define SET32_ROAD [[gnu::target("avx512f,avx512bw,avx512vbmi")]]
#define SET32_ROAD_INLINE [[gnu::always_inline, gnu::target("avx512f,avx512bw,avx512vbmi")]] inline

namespace set32 {

namespace {

using Register = __m512i;
constexpr std::size_t laneBytes = 64;
constexpr std::size_t bytesPerPixel = 3;

SET32_ROAD_INLINE Register Load(const void* from) {
  return _mm512_loadu_si512(from);
}
SET32_ROAD_INLINE void Store(void* to, Register bytes) {
  _mm512_storeu_si512(to, bytes);
}
SET32_ROAD_INLINE Register Zero() {
  return _mm512_setzero_si512();
}
SET32_ROAD_INLINE Register Words(std::int16_t word) {
  return _mm512_set1_epi16(word);
}
SET32_ROAD_INLINE Register InterleaveLow(Register a, Register b) {
  return _mm512_unpacklo_epi8(a, b);
}
SET32_ROAD_INLINE Register InterleaveHigh(Register a, Register b) {
  return _mm512_unpackhi_epi8(a, b);
}
SET32_ROAD_INLINE Register Pack(Register low, Register high) {
  return _mm512_packus_epi16(low, high);
}
SET32_ROAD_INLINE Register Add(Register a, Register b) {
  return _mm512_add_epi16(a, b);
}
SET32_ROAD_INLINE Register Subtract(Register a, Register b) {
  return _mm512_sub_epi16(a, b);
}
SET32_ROAD_INLINE Register Multiply(Register a, Register b) {
  return _mm512_mullo_epi16(a, b);
}
SET32_ROAD_INLINE Register RoundedProduct(Register a, Register b) {
  return _mm512_mulhrs_epi16(a, b);
}

template <int bits>
SET32_ROAD_INLINE Register ShiftUp(Register words) {
  return _mm512_slli_epi16(words, bits);
}

SET32_ROAD_INLINE Register LoadWords(const std::uint8_t* from) {
  return _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from)));
}
SET32_ROAD_INLINE Register PackInOrder(Register first, Register second) {
  const Register places = _mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7);
  return _mm512_maskz_permutexvar_epi64(0xFF, places, Pack(first, second));
}

struct Table {
  Register part[4];
};

SET32_ROAD_INLINE Table LoadTable(const std::uint8_t* bytes) {
  Table table;
  for (int i = 0; i < 4; ++i) table.part[i] = _mm512_loadu_si512(bytes + std::ptrdiff_t{64} * i);
  return table;
}

SET32_ROAD_INLINE Register LookUp(const Table& table, Register levels) {
  const Register low = _mm512_permutex2var_epi8(table.part[0], levels, table.part[1]);
  const Register high = _mm512_permutex2var_epi8(table.part[2], levels, table.part[3]);
  return _mm512_mask_blend_epi8(_mm512_movepi8_mask(levels), low, high);
}

// The masked form, since the compiler's header for the plain one warns of itself.
SET32_ROAD_INLINE Register Permuted(Register places, Register bytes) {
  return _mm512_maskz_permutexvar_epi8(~__mmask64{0}, places, bytes);
}

// The lowest `bytes` bytes of a register.
SET32_ROAD_INLINE __mmask64 Lowest(std::size_t bytes) {
  return bytes >= laneBytes ? ~__mmask64{0} : (__mmask64{1} << bytes) - 1;
}

// Every third byte, from byte `first` on.
constexpr std::uint64_t EveryThird(unsigned first) {
  std::uint64_t mask = 0;
  for (unsigned i = first; i < 64; i += 3) mask |= std::uint64_t{1} << i;
  return mask;
}

SET32_ROAD_INLINE Register LookUpBands(const Table& blue, const Table& green, const Table& red, Register levels,
                                       __mmask64 greens, __mmask64 reds) {
  Register out = LookUp(blue, levels);
  out = _mm512_mask_mov_epi8(out, greens, LookUp(green, levels));
  return _mm512_mask_mov_epi8(out, reds, LookUp(red, levels));
}

SET32_ROAD_INLINE void AskThreeAhead(const std::uint8_t* from, const std::uint8_t* to) {
  for (std::size_t i = 0; i < 3 * laneBytes; i += laneBytes) {
    AskAhead(from + i);
    AskAhead(to + i);
  }
}

SET32_ROAD void Tables(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables) {
  const Table blue = LoadTable(tables.levels.blue);
  const Table green = LoadTable(tables.levels.green);
  const Table red = LoadTable(tables.levels.red);
  std::size_t bytes = pixels * bytesPerPixel;
  for (; bytes >= 3 * laneBytes; bytes -= 3 * laneBytes, from += 3 * laneBytes, to += 3 * laneBytes) {
    AskThreeAhead(from, to);
    // 64 bytes hold 21 pixels and a byte: each register begins one band further on.
    const Register a = _mm512_loadu_si512(from);
    const Register b = _mm512_loadu_si512(from + laneBytes);
    const Register c = _mm512_loadu_si512(from + 2 * laneBytes);
    _mm512_storeu_si512(to, LookUpBands(blue, green, red, a, EveryThird(1), EveryThird(2)));
    _mm512_storeu_si512(to + laneBytes, LookUpBands(blue, green, red, b, EveryThird(0), EveryThird(1)));
    _mm512_storeu_si512(to + 2 * laneBytes, LookUpBands(blue, green, red, c, EveryThird(2), EveryThird(0)));
  }
  constexpr std::uint64_t bands[3] = {EveryThird(0), EveryThird(1), EveryThird(2)};
  for (unsigned begin = 0; bytes > 0; ++begin) {
    const __mmask64 mask = Lowest(bytes);
    const Register levels = _mm512_maskz_loadu_epi8(mask, from);
    _mm512_mask_storeu_epi8(to, mask,
                            LookUpBands(blue, green, red, levels, bands[(4 - begin) % 3], bands[(5 - begin) % 3]));
    const std::size_t done = bytes < laneBytes ? bytes : laneBytes;
    bytes -= done;
    from += done;
    to += done;
  }
}

SET32_ROAD void OneTable(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const PixelTables& tables) {
  const Table levels = LoadTable(tables.levels.blue);
  std::size_t bytes = pixels * bytesPerPixel;
  for (; bytes >= laneBytes; bytes -= laneBytes, from += laneBytes, to += laneBytes) {
    AskAhead(from);
    AskAhead(to);
    Store(to, LookUp(levels, Load(from)));
  }
  const __mmask64 mask = Lowest(bytes);
  _mm512_mask_storeu_epi8(to, mask, LookUp(levels, _mm512_maskz_loadu_epi8(mask, from)));
}

using WidePlaces = std::array<std::uint8_t, 64>;

// Where byte `i` of output register `part` finds its pixel's green in two input registers that begin at `begin`.
constexpr WidePlaces GreenPlaces(unsigned part, unsigned begin) {
  WidePlaces places{};
  for (unsigned i = 0; i < 64; ++i) {
    places[i] = static_cast<std::uint8_t>((64 * part + i) / 3 * 3 + 1 - begin);
  }
  return places;
}

alignas(64) constexpr WidePlaces greens0 = GreenPlaces(0, 0);
alignas(64) constexpr WidePlaces greens1 = GreenPlaces(1, 64);
alignas(64) constexpr WidePlaces greens2 = GreenPlaces(2, 64);

SET32_ROAD void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  const Table levels = LoadTable(table);
  const Register place0 = Load(greens0.data());
  const Register place1 = Load(greens1.data());
  const Register place2 = Load(greens2.data());
  std::size_t bytes = pixels * bytesPerPixel;
  for (; bytes >= 3 * laneBytes; bytes -= 3 * laneBytes, from += 3 * laneBytes, to += 3 * laneBytes) {
    AskThreeAhead(from, to);
    const Register a = Load(from);
    const Register b = Load(from + laneBytes);
    const Register c = Load(from + 2 * laneBytes);
    Store(to, LookUp(levels, _mm512_permutex2var_epi8(a, place0, b)));
    Store(to + laneBytes, LookUp(levels, Permuted(place1, b)));
    Store(to + 2 * laneBytes, LookUp(levels, _mm512_permutex2var_epi8(b, place2, c)));
  }
  PortableRoad().levels(from, to, bytes / bytesPerPixel, table);
}

// Where band `band` of 64 pixels stands in the registers 0 and 1 (128 bytes), and in register 2.
constexpr WidePlaces SplitPlaces(unsigned band) {
  WidePlaces places{};
  for (unsigned i = 0; i < 64; ++i) places[i] = static_cast<std::uint8_t>((3 * i + band) % 128);
  return places;
}

constexpr std::uint64_t SplitLast(unsigned band) {
  std::uint64_t mask = 0;
  for (unsigned i = 0; i < 64; ++i) {
    if (3 * i + band >= 128) mask |= std::uint64_t{1} << i;
  }
  return mask;
}

// Where the bytes of output register `part` stand in the registers of blue and green, and of red.
constexpr WidePlaces JoinPlaces(unsigned part) {
  WidePlaces places{};
  for (unsigned i = 0; i < 64; ++i) {
    const unsigned at = 64 * part + i;
    places[i] = static_cast<std::uint8_t>(at / 3 + (at % 3 == 1 ? 64 : 0));
  }
  return places;
}

constexpr std::uint64_t JoinReds(unsigned part) {
  return EveryThird((2 + 2 * part) % 3);
}

alignas(64) constexpr WidePlaces splitBlue = SplitPlaces(0);
alignas(64) constexpr WidePlaces splitGreen = SplitPlaces(1);
alignas(64) constexpr WidePlaces splitRed = SplitPlaces(2);
alignas(64) constexpr WidePlaces join0 = JoinPlaces(0);
alignas(64) constexpr WidePlaces join1 = JoinPlaces(1);
alignas(64) constexpr WidePlaces join2 = JoinPlaces(2);

SET32_ROAD_INLINE Register Band(Register a, Register b, Register c, const WidePlaces& places, std::uint64_t last) {
  const Register at = Load(places.data());
  return _mm512_mask_mov_epi8(_mm512_permutex2var_epi8(a, at, b), last, Permuted(at, c));
}

struct Bands {
  Register blue;
  Register green;
  Register red;
};

struct Halves {
  Bands low;
  Bands high;
};

using Packed = Bands;

SET32_ROAD_INLINE Packed SplitPixels(const std::uint8_t* from) {
  const Register a = Load(from);
  const Register b = Load(from + laneBytes);
  const Register c = Load(from + 2 * laneBytes);
  return {Band(a, b, c, splitBlue, SplitLast(0)), Band(a, b, c, splitGreen, SplitLast(1)),
          Band(a, b, c, splitRed, SplitLast(2))};
}

SET32_ROAD_INLINE Register Joined(const Packed& bands, const WidePlaces& places, std::uint64_t reds) {
  const Register at = Load(places.data());
  return _mm512_mask_mov_epi8(_mm512_permutex2var_epi8(bands.blue, at, bands.green), reds, Permuted(at, bands.red));
}

SET32_ROAD_INLINE void JoinPixels(const Packed& bands, std::uint8_t* to) {
  Store(to, Joined(bands, join0, JoinReds(0)));
  Store(to + laneBytes, Joined(bands, join1, JoinReds(1)));
  Store(to + 2 * laneBytes, Joined(bands, join2, JoinReds(2)));
}

SET32_ROAD_INLINE Halves Unpacked(const Packed& bytes) {
  return {
      {InterleaveLow(bytes.blue, Zero()), InterleaveLow(bytes.green, Zero()), InterleaveLow(bytes.red, Zero())},
      {InterleaveHigh(bytes.blue, Zero()), InterleaveHigh(bytes.green, Zero()), InterleaveHigh(bytes.red, Zero())}};
}

SET32_ROAD_INLINE Packed Repacked(const Halves& words) {
  return {Pack(words.low.blue, words.high.blue), Pack(words.low.green, words.high.green),
          Pack(words.low.red, words.high.red)};
}

#include "adjust/pixel_kernels.inc"

}  // namespace

PixelRoad Avx512Road() {
  return {"AVX-512 VBMI", Tables, OneTable, Levels, Sharpen, fewRegisters ? Avx2Road().colours : Colours};
}

}  // namespace set32

#endif
