#include "apps/driver/suggestions.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace set32 {

namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// How many characters to change, add or drop, or neighbours to exchange, until one word is the other.
std::size_t Distance(std::string_view one, std::string_view other) {
  const std::size_t width = other.size() + 1;
  std::vector<std::size_t> before(width), row(width), next(width);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < one.size(); ++i) {
    next[0] = i + 1;
    for (std::size_t k = 0; k < other.size(); ++k) {
      const bool same = Lower(one[i]) == Lower(other[k]);
      next[k + 1] = std::min({row[k] + (same ? 0U : 1U), row[k + 1] + 1, next[k] + 1});
      const bool exchanged =
          i > 0 && k > 0 && Lower(one[i]) == Lower(other[k - 1]) && Lower(one[i - 1]) == Lower(other[k]);
      if (exchanged) next[k + 1] = std::min(next[k + 1], before[k - 1] + 1);
    }
    before.swap(row);
    row.swap(next);
  }
  return row.back();
}

}  // namespace

bool SameWord(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, {}, Lower, Lower);
}

bool BeginsWith(std::string_view word, std::string_view prefix) {
  return word.size() >= prefix.size() && SameWord(word.substr(0, prefix.size()), prefix);
}

std::string Listed(std::span<const std::string> words) {
  std::string list;
  for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
  return list;
}

std::vector<std::string> NearWords(std::string_view word, std::span<const std::string> words) {
  constexpr std::size_t longest = 64;  // no name is longer, and what is isn't near
  constexpr std::size_t lettersAMistake = 3;
  if (word.empty() || word.size() > longest) return {};
  std::vector<std::string> near;
  std::size_t least = std::max<std::size_t>(1, word.size() / lettersAMistake);
  for (const std::string& candidate : words) {
    const std::size_t distance = BeginsWith(candidate, word) ? 0 : Distance(word, candidate);
    if (distance > least) continue;
    if (distance < least) near.clear();
    least = distance;
    near.push_back(candidate);
  }
  return near;
}

std::string Suggest(std::string_view word, std::span<const std::string> words) {
  const std::vector<std::string> near = NearWords(word, words);
  if (near.empty()) return words.empty() ? std::string() : "there are: " + Listed(words);
  std::string line = "did you mean ";
  for (std::size_t i = 0; i < near.size(); ++i) line += (i == 0 ? "" : " or ") + near[i];
  return line + '?';
}

}  // namespace set32
