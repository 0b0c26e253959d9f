// Words that were meant, words that there are: what is said to whoever wrote another one.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace set32 {

// Without regard to ASCII letter case.
bool SameWord(std::string_view one, std::string_view other);
bool BeginsWith(std::string_view word, std::string_view prefix);

// "a, b, c"
std::string Listed(std::span<const std::string> words);

// "did you mean a or b?" when some are near to the word, else "there are: a, b, c".
std::string Suggest(std::string_view word, std::span<const std::string> words);
// The near ones alone.
std::vector<std::string> NearWords(std::string_view word, std::span<const std::string> words);

}  // namespace set32
