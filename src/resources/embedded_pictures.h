// The image files that lie in the module, as they were on the disk of the build. The table is written at build time.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace set32 {

struct EmbeddedPicture {
  std::string_view name;  // the file's, without its ending
  std::span<const std::uint8_t> bytes;
};

std::span<const EmbeddedPicture> EmbeddedPictures();

}  // namespace set32
