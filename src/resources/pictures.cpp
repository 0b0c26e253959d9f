#include "resources/pictures.h"

#include <algorithm>

#include "resources/embedded_pictures.h"
#include "resources/picture_reader.h"

namespace set32 {

Picture LoadPicture(std::string_view name) {
  const auto pictures = EmbeddedPictures();
  const auto found = std::ranges::find(pictures, name, &EmbeddedPicture::name);
  if (found == pictures.end()) return {};
  Picture picture = ReadPicture(found->bytes);
  picture.name = name;
  return picture;
}

}  // namespace set32
