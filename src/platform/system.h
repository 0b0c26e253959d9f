// The system's own facts: language, clock, and the code page of the module's text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace set32 {

class System {
 public:
  virtual ~System() = default;

  // The system's default language id; its low ten bits are the primary language, 9 is English.
  virtual std::uint16_t DefaultLanguage() = 0;

  // A clock that only goes forward, and the wall clock's minutes and seconds of the hour as minutes * 60 + seconds.
  virtual std::uint64_t Milliseconds() = 0;
  virtual int SecondsOfHour() = 0;

  virtual void Beep() = 0;

  // All texts inside the module are bytes of one code page. Its own texts are written in UTF-8 and come in by this.
  virtual std::string FromUtf8(std::string_view text) = 0;
  // For display and transcripts; a byte that is no character becomes U+FFFD.
  virtual std::string ToUtf8(std::string_view text) = 0;
  // Bytes of the character at the start of the text: 1 to 4, 0 for an empty text; a byte that begins no whole
  // character counts as one.
  virtual std::size_t CharacterLength(std::string_view text) = 0;
};

// Characters in a text.
std::size_t CountCharacters(System& system, std::string_view text);
// Bytes that the first `characters` characters take, the whole text's if it has fewer.
std::size_t BytesOfCharacters(System& system, std::string_view text, std::size_t characters);
// The text cut to at most `bytes` bytes, at the start of a character.
std::string_view CutAtCharacter(System& system, std::string_view text, std::size_t bytes);

}  // namespace set32
