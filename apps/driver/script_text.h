// The words of a script: how a line falls into words, how numbers and texts are written, how texts are printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace set32 {

// One word of a statement. `text` is what the word means, quotes and escapes resolved.
struct Word {
  std::string text;
  bool quoted = false;    // it began with a quote, so it is a text and never a keyword
  std::size_t begin = 0;  // where it stands in the line, as written
  std::size_t end = 0;
};

// Splits at blanks outside quotes. A '#' outside quotes begins a comment unless a digit follows. Throws NotPossible
// on a quote that isn't closed and on an escape that isn't known.
std::vector<Word> SplitWords(std::string_view line);

// The line without its comment and without blanks at either end.
std::string_view WithoutComment(std::string_view line);

// The same words with one blank between them, each as it was written, so that two lines compare by what they say.
std::string Normalised(std::string_view line);

// A text in quotes as scripts write it; a byte that isn't UTF-8 becomes \xNN.
std::string Quote(std::string_view text);

// Decimal or 0x, with an optional minus sign; nothing else.
std::optional<std::int64_t> ParseInteger(std::string_view word);
std::optional<double> ParseReal(std::string_view word);

// These throw NotPossible, naming what the word should have been.
std::int64_t RequireInteger(const Word& word, std::int64_t low, std::int64_t high);
int RequireInt(const Word& word);
std::uint32_t RequireWord32(std::string_view word);  // also negative numbers, as two's complement
// "#3"
std::optional<int> ParseIndex(const Word& word);

// "NAME=VALUE"; throws when there is no '='.
std::pair<std::string, std::string> SplitAssignment(const Word& word);

// Whether all of it is UTF-8.
bool IsText(std::string_view bytes);

// Pairs of hexadecimal digits.
std::vector<std::uint8_t> RequireBytes(const Word& word);

// A control as a statement names it: "1009" or "103:1221".
struct ControlName {
  std::string written;
  std::optional<int> dialog;
  int id = 0;
};
std::optional<ControlName> ParseControlName(const Word& word);

std::string Number(double value);              // the shortest form that reads back the same
std::string Hexadecimal(std::uint32_t value);  // 0x and upper-case digits

}  // namespace set32
