#include "apps/driver/statement_form.h"

#include <algorithm>

#include "apps/driver/suggestions.h"

namespace set32 {

namespace {

constexpr std::string_view repeats = "...";

using Alternative = std::vector<std::string>;

// The name in front belongs to all of them.
std::vector<Alternative> AlternativesOf(std::string_view form) {
  std::vector<Alternative> alternatives(1);
  bool isName = true;
  for (const Word& word : SplitWords(form)) {
    std::string text = word.text;
    std::erase_if(text, [](char c) { return c == '[' || c == ']'; });
    if (isName) {
      isName = false;
    } else if (text == "|") {
      alternatives.emplace_back();
    } else {
      alternatives.back().push_back(std::move(text));
    }
  }
  return alternatives;
}

// The alternative's word at a place, empty behind its last.
std::string_view WordAt(const Alternative& words, std::size_t index) {
  if (const auto dots = std::find(words.begin(), words.end(), repeats); dots != words.end()) {
    const auto place = static_cast<std::size_t>(dots - words.begin());
    if (index >= place && place > 0) return words[place - 1];
  }
  return index < words.size() ? std::string_view(words[index]) : std::string_view();
}

bool Fits(const Alternative& words, std::span<const Word> before) {
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::string_view expected = WordAt(words, i);
    if (expected.empty()) return false;
    if (IsKeyword(expected) && (before[i].quoted || !SameWord(expected, before[i].text))) return false;
  }
  return true;
}

}  // namespace

bool IsKeyword(std::string_view formWord) {
  const bool isName = !formWord.empty() && formWord.front() >= 'a' && formWord.front() <= 'z';
  return isName && formWord.find('=') == std::string_view::npos;
}

std::vector<std::string> FormWordsAfter(std::string_view form, std::span<const Word> before) {
  std::vector<std::string> words;
  for (const Alternative& alternative : AlternativesOf(form)) {
    if (!Fits(alternative, before)) continue;
    std::string word(WordAt(alternative, before.size()));
    if (!word.empty() && std::find(words.begin(), words.end(), word) == words.end()) words.push_back(std::move(word));
  }
  return words;
}

void FoldKeywords(std::string_view form, std::span<Word> words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].quoted) continue;
    for (const std::string& expected : FormWordsAfter(form, words.first(i))) {
      if (IsKeyword(expected) && SameWord(expected, words[i].text)) words[i].text = expected;
    }
  }
}

}  // namespace set32
