// UTF-8 as every implementation of System needs it. Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace set32::utf8 {

// Bytes of the well-formed character at the start of the text; 1 for a byte that begins none, 0 for an empty text.
std::size_t CharacterLength(std::string_view text);
// Whether that many bytes are a character at all.
bool IsCharacter(std::string_view text);
// Every byte that is no character becomes U+FFFD.
std::string Mend(std::string_view text);

}  // namespace set32::utf8
