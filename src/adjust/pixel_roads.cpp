#include "adjust/pixel_roads.h"

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

}  // namespace

std::span<const PixelRoad> UsableRoads() {
  static const std::vector<PixelRoad> roads = FindRoads();
  return roads;
}

const PixelRoad& BestRoad() {
  return UsableRoads().back();
}

}  // namespace set32
