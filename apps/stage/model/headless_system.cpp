#include "apps/stage/model/headless_system.h"

#include "platform/utf8.h"

namespace set32 {

std::string HeadlessSystem::ToUtf8(std::string_view text) {
  return utf8::Mend(text);
}

std::size_t HeadlessSystem::CharacterLength(std::string_view text) {
  return utf8::CharacterLength(text);
}

}  // namespace set32
