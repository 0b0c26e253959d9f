# The image files of resources/pictures become one source of plain arrays, written by CMake alone, so a cross build
# needs no program of the host's. The source changes, and is compiled again, only when an image does.
file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/resources/pictures/*.bmp
                                     ${CMAKE_CURRENT_SOURCE_DIR}/resources/pictures/*.ico)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${pictures})

set(arrays "")
set(entries "")
set(number 0)
foreach(picture ${pictures})
  get_filename_component(name ${picture} NAME_WE)
  file(READ ${picture} bytes HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  string(APPEND arrays "constexpr std::uint8_t bytes${number}[] = {${bytes}};\n")
  string(APPEND entries "    {\"${name}\", bytes${number}},\n")
  math(EXPR number "${number} + 1")
endforeach()

set(embedded ${CMAKE_CURRENT_BINARY_DIR}/embedded_pictures.cpp)
file(CONFIGURE OUTPUT ${embedded} @ONLY CONTENT [[
#include "resources/embedded_pictures.h"

namespace set32 {
namespace {

@arrays@
constexpr EmbeddedPicture table[] = {
@entries@};

}  // namespace

std::span<const EmbeddedPicture> EmbeddedPictures() { return table; }

}  // namespace set32
]])
target_sources(set32_resources PRIVATE ${embedded})
