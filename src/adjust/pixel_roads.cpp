#include "adjust/pixel_roads.h"

#include "adjust/pixel_road_kinds.h"

namespace set32 {

std::span<const PixelRoad> UsableRoads() {
  static const std::array<PixelRoad, 1> roads{PortableRoad()};
  return roads;
}

const PixelRoad& BestRoad() {
  static const PixelRoad& best = UsableRoads().back();
  return best;
}

}  // namespace set32
