#include "apps/scan-desk/frames/auto_crop.h"

#include <algorithm>
#include <cstdlib>

namespace scan_desk {

namespace {

constexpr std::size_t bytesAPixel = 3;

bool StandsOut(std::span<const std::uint8_t> pixel, std::span<const std::uint8_t> ground) {
  constexpr int grain = 48;  // of paper and shadow
  return !std::equal(pixel.begin(), pixel.end(), ground.begin(),
                     [](int one, int other) { return std::abs(one - other) <= grain; });
}

}  // namespace

set32::Rect ContentOf(std::span<const std::uint8_t> pixels, set32::Size size, std::size_t stride) {
  const set32::Rect whole{0, 0, size.width, size.height};
  const auto row = [&](int y) {  // from the top
    return pixels.subspan(static_cast<std::size_t>(size.height - 1 - y) * stride,
                          static_cast<std::size_t>(size.width) * bytesAPixel);
  };
  if (size.width <= 0 || size.height <= 0) return whole;
  const std::span<const std::uint8_t> ground = row(0).first(bytesAPixel);
  set32::Rect found{size.width, size.height, 0, 0};
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      if (!StandsOut(row(y).subspan(static_cast<std::size_t>(x) * bytesAPixel, bytesAPixel), ground)) continue;
      found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1), y + 1};
    }
  }
  return found.right == 0 ? whole : found;
}

}  // namespace scan_desk
