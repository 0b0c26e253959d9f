// Any bytes as a picture file: a whole picture comes out, or none.
#include "resources/picture_reader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const set32::Picture picture = set32::ReadPicture({data, size});
  const auto pixels = static_cast<std::size_t>(picture.size.width) * static_cast<std::size_t>(picture.size.height);
  if (picture.pixels.size() != pixels * 4) std::abort();
  return 0;
}
