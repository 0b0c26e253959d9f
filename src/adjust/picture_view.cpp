#include "adjust/picture_view.h"

#include <algorithm>

namespace set32 {

namespace {

constexpr std::uint32_t uncompressed = 0;
constexpr int bytesPerPixel = 3;

bool IsPlain(const BitmapInfoHeader& header) {
  return header.bitCount == 8 * bytesPerPixel && header.compression == uncompressed && header.width > 0 &&
         header.height > 0;
}

}  // namespace

std::optional<PictureView> ViewOf(const CDib& dib) {
  if (!dib.header || !dib.sourcePixels || !dib.displayPixels || !IsPlain(*dib.header)) return std::nullopt;
  if (std::uint64_t{dib.stride} < std::uint64_t{bytesPerPixel} * static_cast<std::uint32_t>(dib.header->width)) {
    return std::nullopt;
  }
  PictureView view;
  view.width = dib.header->width;
  view.height = static_cast<int>(
      std::min<std::uint32_t>(static_cast<std::uint32_t>(dib.header->height), dib.imageSize / dib.stride));
  if (view.height == 0) return std::nullopt;
  view.stride = dib.stride;
  const std::size_t below = dib.imageSize - static_cast<std::size_t>(view.height) * view.stride;
  view.source = dib.sourcePixels + below;
  view.display = dib.displayPixels + below;
  return view;
}

}  // namespace set32
