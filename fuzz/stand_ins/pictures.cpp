// In the place of the library's own: the panel's pictures are read once, not once an input.
#include "resources/pictures.h"

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "resources/embedded_pictures.h"
#include "resources/picture_reader.h"

set32::Picture set32::LoadPicture(std::string_view name) {
  static std::map<std::string, Picture, std::less<>> known;
  const auto found = known.find(name);
  if (found != known.end()) return found->second;
  Picture picture;
  for (const EmbeddedPicture& embedded : EmbeddedPictures()) {
    if (embedded.name == name) picture = ReadPicture(embedded.bytes);
  }
  picture.name = name;
  return known.emplace(name, std::move(picture)).first->second;
}
