#include "platform/system.h"

namespace set32 {

std::size_t CountCharacters(System& system, std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    text.remove_prefix(system.CharacterLength(text));
    ++count;
  }
  return count;
}

std::size_t BytesOfCharacters(System& system, std::string_view text, std::size_t characters) {
  std::string_view rest = text;
  while (characters-- > 0 && !rest.empty()) rest.remove_prefix(system.CharacterLength(rest));
  return text.size() - rest.size();
}

std::string_view CutAtCharacter(System& system, std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  std::size_t kept = 0;
  for (std::size_t next = 0; next <= bytes; next += system.CharacterLength(text.substr(next))) kept = next;
  return text.substr(0, kept);
}

}  // namespace set32
