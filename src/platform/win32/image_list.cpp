#include "platform/win32/image_list.h"

#include "platform/win32/picture_bitmap.h"

namespace set32::win32 {

namespace {

constexpr UINT kind = ILC_COLOR24 | ILC_MASK;

Picture EmptyPicture(Size size) {
  const auto bytes = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 4;
  return {.name = {}, .size = size, .pixels = std::vector<std::uint8_t>(bytes)};
}

}  // namespace

OwnedImageList MakeImageList(const std::vector<Picture>& pictures, Size size) {
  OwnedImageList list(ImageList_Create(size.width, size.height, kind, static_cast<int>(pictures.size()), 1));
  if (!list) return list;
  for (const Picture& picture : pictures) {
    const bool fits = IsSound(picture) && picture.size == size;
    const MaskedBitmap parts = MakeMasked(fits ? picture : EmptyPicture(size));
    ImageList_Add(list.Get(), parts.colours.Get(), parts.mask.Get());
  }
  return list;
}

OwnedImageList MakeImageList(const Picture& strip, int width, Colour transparent) {
  if (!IsSound(strip) || width <= 0 || width > strip.size.width) return {};
  OwnedImageList list(ImageList_Create(width, strip.size.height, kind, strip.size.width / width, 1));
  if (!list) return list;
  const MaskedBitmap parts = MakeMasked(strip, transparent);
  ImageList_Add(list.Get(), parts.colours.Get(), parts.mask.Get());
  return list;
}

}  // namespace set32::win32
