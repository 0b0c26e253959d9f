#include "adjust/pixel_roads.h"

#include <cstring>
#include <vector>

#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

std::vector<PixelRoad> FindRoads() {
  std::vector<PixelRoad> roads{PortableRoad()};
#if SET32_X86_ROADS
  __builtin_cpu_init();
  if (__builtin_cpu_supports("ssse3")) roads.push_back(Ssse3Road());
  if (__builtin_cpu_supports("avx2")) roads.push_back(Avx2Road());
  if (__builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vbmi")) roads.push_back(Avx512Road());
#endif
  return roads;
}

bool AreAlike(const BandTables& tables) {
  constexpr std::size_t levels = 256;
  return std::memcmp(tables.blue, tables.green, levels) == 0 && std::memcmp(tables.blue, tables.red, levels) == 0;
}

}  // namespace

PixelTables::PixelTables(const BandTables& tables) : levels(tables), alike(AreAlike(tables)) {
  for (std::size_t level = 0; level < blue.size(); ++level) {
    blue[level] = tables.blue[level];
    green[level] = std::uint32_t{tables.green[level]} << 8;
    red[level] = std::uint32_t{tables.red[level]} << 16;
  }
}

const LumaShares lumaShares{.red = 54, .blue = 19};

std::span<const PixelRoad> UsableRoads() {
  static const std::vector<PixelRoad> roads = FindRoads();
  return roads;
}

const PixelRoad& BestRoad() {
  return UsableRoads().back();
}

}  // namespace set32
