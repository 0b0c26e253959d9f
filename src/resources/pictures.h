// The pictures, embedded from ordinary image files at build time.
#pragma once

#include <string_view>

#include "platform/picture.h"

namespace set32 {

// A picture by name or number (picture::); empty for one that isn't there, so a button's missing faces stay empty.
// Bitmaps 130 and 132 come as they are drawn, with the transparent colour 255, 0, 255 opaque in them; icons come with
// their transparency. Any thread.
Picture LoadPicture(std::string_view name);

}  // namespace set32
