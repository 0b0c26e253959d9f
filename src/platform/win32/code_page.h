// The code page of the module's bytes: the system's active one, or UTF-8 where that can't hold the module's own
// texts (set32/windows_host.h tells which).
//
// Windows are told their texts in UTF-16, so that they show rightly whatever the active code page is. Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace set32::win32 {

class CodePage {
 public:
  explicit CodePage(unsigned number) : number_(number) {}

  unsigned Number() const { return number_; }
  // Whether every character of this UTF-8 text exists in the code page.
  bool Holds(std::string_view utf8) const;

  std::wstring Wide(std::string_view text) const;
  // What the code page lacks becomes its own mark for that ('?').
  std::string Narrow(std::wstring_view text) const;
  // Whether `Narrow` loses nothing.
  bool HoldsWide(std::wstring_view text) const;

  std::string FromUtf8(std::string_view text) const;
  std::string ToUtf8(std::string_view text) const;
  std::size_t CharacterLength(std::string_view text) const;

 private:
  unsigned number_;
};

// The module's, chosen at the first call and the same from then on.
const CodePage& ModuleText();
// For programs whose files and scripts are UTF-8 whatever the system says; before any window stands.
void UseUtf8();

std::wstring WideFromUtf8(std::string_view text);
std::string Utf8FromWide(std::wstring_view text);

// Positions in a wide text: characters and UTF-16 units differ where a character takes two.
int CharactersOfUnits(std::wstring_view text, int units);
int UnitsOfCharacters(std::wstring_view text, int characters);

}  // namespace set32::win32
