#include "platform/win32/picture_bitmap.h"

#include <algorithm>
#include <cstring>

namespace set32::win32 {

namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr int longestSide = 0x4000;

BITMAPINFO HeaderFor(Size size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;  // rows top-down
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

std::size_t PixelCount(Size size) {
  return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

}  // namespace

PixelBitmap::PixelBitmap(Size size) : size_(size) {
  if (size.width <= 0 || size.height <= 0 || size.width > longestSide || size.height > longestSide) return;
  const BITMAPINFO info = HeaderFor(size);
  void* pixels = nullptr;
  bitmap_ = OwnedBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  if (bitmap_) pixels_ = static_cast<std::uint8_t*>(pixels);
}

void PixelBitmap::Fill(const Picture& picture) const {
  if (pixels_ != nullptr && picture.size == size_)
    std::copy_n(picture.pixels.data(), PixelCount(size_) * bytesPerPixel, pixels_);
}

std::uint8_t* PixelBitmap::At(int x, int y) const {
  if (pixels_ == nullptr || x < 0 || y < 0 || x >= size_.width || y >= size_.height) return nullptr;
  const std::size_t row = static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width);
  return pixels_ + (row + static_cast<std::size_t>(x)) * bytesPerPixel;
}

bool IsSound(const Picture& picture) {
  const Size size = picture.size;
  return size.width > 0 && size.height > 0 && size.width <= longestSide && size.height <= longestSide &&
         picture.pixels.size() >= PixelCount(size) * bytesPerPixel;
}

void DrawOver(HDC dc, const Picture& picture, Point at) {
  if (!IsSound(picture)) return;
  const PixelBitmap bitmap(picture.size);
  const OwnedDc memory(CreateCompatibleDC(dc));
  if (!bitmap || !memory) return;
  const Selected selected(memory.Get(), bitmap.Handle());
  BitBlt(memory.Get(), 0, 0, picture.size.width, picture.size.height, dc, at.x, at.y, SRCCOPY);
  GdiFlush();
  std::uint8_t* to = bitmap.At(0, 0);
  for (std::size_t i = 0; i < PixelCount(picture.size); ++i, to += bytesPerPixel) {
    const std::uint8_t* from = picture.pixels.data() + i * bytesPerPixel;
    if (from[3] != 0) std::memcpy(to, from, bytesPerPixel);
  }
  BitBlt(dc, at.x, at.y, picture.size.width, picture.size.height, memory.Get(), 0, 0, SRCCOPY);
}

MaskedBitmap MakeMasked(const Picture& picture, std::optional<Colour> transparent) {
  if (!IsSound(picture)) return {};
  const PixelBitmap colours(picture.size);
  const std::size_t maskStride = (static_cast<std::size_t>(picture.size.width) + 15) / 16 * 2;
  std::vector<std::uint8_t> mask(maskStride * static_cast<std::size_t>(picture.size.height));
  if (!colours) return {};
  for (int y = 0; y < picture.size.height; ++y) {
    for (int x = 0; x < picture.size.width; ++x) {
      const std::size_t index =
          static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.size.width) + static_cast<std::size_t>(x);
      const std::uint8_t* from = picture.pixels.data() + index * bytesPerPixel;
      const bool hole = from[3] == 0 || (transparent && *transparent == Colour{from[2], from[1], from[0]});
      if (hole) {
        const std::size_t byte = static_cast<std::size_t>(y) * maskStride + static_cast<std::size_t>(x) / 8;
        mask[byte] = static_cast<std::uint8_t>(mask[byte] | 0x80U >> (x % 8));
      } else {
        std::memcpy(colours.At(x, y), from, bytesPerPixel);
      }
    }
  }
  // Bitmaps of the screen's own kind, since older image lists and icons don't take others.
  const WindowDc screen(nullptr);
  BITMAPINFO info = HeaderFor(picture.size);
  MaskedBitmap result;
  result.colours =
      OwnedBitmap(CreateDIBitmap(screen.Get(), &info.bmiHeader, CBM_INIT, colours.At(0, 0), &info, DIB_RGB_COLORS));
  result.mask = OwnedBitmap(CreateBitmap(picture.size.width, picture.size.height, 1, 1, mask.data()));
  return result;
}

OwnedIcon MakeIcon(const Picture& picture) {
  const MaskedBitmap parts = MakeMasked(picture);
  if (!parts.colours || !parts.mask) return {};
  ICONINFO info{};
  info.fIcon = TRUE;
  info.hbmMask = parts.mask.Get();
  info.hbmColor = parts.colours.Get();
  return OwnedIcon(CreateIconIndirect(&info));
}

}  // namespace set32::win32
