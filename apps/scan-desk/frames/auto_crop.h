// What a scanner's automatic crop would find on the preview, free of any window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/geometry.h"

namespace scan_desk {

// Around all that stands out from the colour of the picture's upper left corner, or the whole picture where nothing
// does. `pixels` are 24 bits each, rows bottom-up and so many bytes apart.
set32::Rect ContentOf(std::span<const std::uint8_t> pixels, set32::Size size, std::size_t stride);

}  // namespace scan_desk
