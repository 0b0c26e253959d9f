// Image lists of the window system, made from pictures.
#pragma once

#include <optional>
#include <vector>

#include "platform/picture.h"
#include "platform/win32/handle.h"

#include <commctrl.h>

namespace set32::win32 {

inline void FreeImageList(HIMAGELIST list) {
  ImageList_Destroy(list);
}
using OwnedImageList = Owned<HIMAGELIST, FreeImageList>;

// One image a picture, each of this size; a picture that can't serve leaves an empty place.
OwnedImageList MakeImageList(const std::vector<Picture>& pictures, Size size);

// A strip of images side by side.
OwnedImageList MakeImageList(const Picture& strip, int width, Colour transparent);

}  // namespace set32::win32
