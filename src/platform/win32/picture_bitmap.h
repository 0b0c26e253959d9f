// Pictures in memory as the window system's bitmaps and icons.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/picture.h"
#include "platform/win32/handle.h"

namespace set32::win32 {

// A top-down bitmap of 32 bits a pixel whose pixels can be read and written. Call GdiFlush between what the window
// system draws and what is read or written here.
class PixelBitmap {
 public:
  // Without a bitmap when the size is empty or there is no memory.
  explicit PixelBitmap(Size size);

  explicit operator bool() const { return pixels_ != nullptr; }
  HBITMAP Handle() const { return bitmap_.Get(); }
  Size Area() const { return size_; }
  // Takes over a sound picture of this size.
  void Fill(const Picture& picture) const;
  // Null outside.
  std::uint8_t* At(int x, int y) const;

 private:
  Size size_;
  OwnedBitmap bitmap_;
  std::uint8_t* pixels_ = nullptr;
};

// Whether the picture has all the pixels that its size promises.
bool IsSound(const Picture& picture);

// Lays the picture over what is in the device context; transparent pixels leave it.
void DrawOver(HDC dc, const Picture& picture, Point at);

// Colours on top of a mask, as image lists and icons take them. `transparent` stands for holes too, if given.
struct MaskedBitmap {
  OwnedBitmap colours;
  OwnedBitmap mask;
};
MaskedBitmap MakeMasked(const Picture& picture, std::optional<Colour> transparent = {});

OwnedIcon MakeIcon(const Picture& picture);

}  // namespace set32::win32
