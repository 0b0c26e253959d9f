// A small picture in memory: an icon, a bitmap button's face, a strip of tab images.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/geometry.h"

namespace set32 {

// Rows top-down, no padding; a pixel is blue, green, red, alpha. Alpha 0 is transparent, 255 opaque.
struct Picture {
  std::string name;  // the resource's name or number, for inspection: "132", "RGBGAMMAU"
  Size size;
  std::vector<std::uint8_t> pixels;  // size.width * size.height * 4 bytes

  bool Empty() const { return pixels.empty(); }
};

}  // namespace set32
