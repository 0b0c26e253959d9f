// Reading of bitmap and icon files.
#pragma once

#include <cstdint>
#include <span>

#include "platform/picture.h"

namespace set32 {

// The picture of a BMP file, or the first image of an ICO file, without a name. Uncompressed pictures of 4, 8 and 24
// bits per pixel, up to 1024 pixels a side. Empty for anything else and for a damaged file; no bytes are too strange.
Picture ReadPicture(std::span<const std::uint8_t> file);

}  // namespace set32
