#include "adjust/pixel_road_kinds.h"

namespace set32 {

namespace {

void Tables(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const BandTables& tables) {
  for (std::size_t i = 0; i < pixels; ++i, from += 3, to += 3) {
    to[0] = tables.blue[from[0]];
    to[1] = tables.green[from[1]];
    to[2] = tables.red[from[2]];
  }
}

void Levels(const std::uint8_t* from, std::uint8_t* to, std::size_t pixels, const std::uint8_t* table) {
  for (std::size_t i = 0; i < pixels; ++i, from += 3, to += 3) to[0] = to[1] = to[2] = table[from[1]];
}

}  // namespace

PixelRoad PortableRoad() {
  return {"portable", Tables, Levels};
}

}  // namespace set32
