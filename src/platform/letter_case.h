// Letter case. It is folded for ASCII letters alone, wherever names and texts are compared without regard to it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace set32 {

constexpr char Folded(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// One spelling for all that count as the same.
inline std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& letter : folded) letter = Folded(letter);
  return folded;
}

constexpr bool EqualFolded(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, [](char left, char right) { return Folded(left) == Folded(right); });
}

constexpr bool BeginsFolded(std::string_view text, std::string_view beginning) {
  return EqualFolded(text.substr(0, beginning.size()), beginning);
}

}  // namespace set32
