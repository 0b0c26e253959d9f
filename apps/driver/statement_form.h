// A statement's form as `help` prints it, "row ID TEXT | ID #INDEX | ID none", read for what it says: words in small
// letters stand as they are, the others stand for something, and "..." repeats the one before.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/driver/script_text.h"

namespace set32 {

// The form's words that may follow the ones that stand behind the statement's name already.
std::vector<std::string> FormWordsAfter(std::string_view form, std::span<const Word> before);

// Whether a word of a form stands as it is.
bool IsKeyword(std::string_view formWord);

// Writes the form's own words as it does, whatever letter case they were written in.
void FoldKeywords(std::string_view form, std::span<Word> words);

}  // namespace set32
