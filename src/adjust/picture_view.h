// A picture whose header and buffers agree, as far as that can be told: what all work on pixels starts from.
//
// The host fills the object, so nothing in it is taken for granted. Free functions, host's thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "set32/dib.h"

namespace set32 {

// Rows lie bottom-up and end where the image ends, so that the last row in memory is the picture's top. Row 0 of a
// view is the lowest in memory.
struct PictureView {
  const std::uint8_t* source = nullptr;  // first pixel of row 0
  std::uint8_t* display = nullptr;
  int width = 0;   // pixels
  int height = 0;  // rows that are certain to be there; fewer than the header's when the image is too small for all
  std::size_t stride = 0;

  const std::uint8_t* SourceRow(int row) const { return source + static_cast<std::size_t>(row) * stride; }
  std::uint8_t* DisplayRow(int row) const { return display + static_cast<std::size_t>(row) * stride; }
};

// Nothing for a picture that isn't plain 24-bit pixels in rows bottom-up, that lacks a buffer, or whose rows would
// overlap.
std::optional<PictureView> ViewOf(const CDib& dib);

}  // namespace set32
