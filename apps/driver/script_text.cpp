#include "apps/driver/script_text.h"

#include <array>
#include <charconv>
#include <limits>

#include "apps/driver/not_possible.h"
#include "platform/utf8.h"

namespace set32 {

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool BeginsComment(std::string_view line, std::size_t at) {
  return line[at] == '#' && (at + 1 >= line.size() || !IsDigit(line[at + 1]));
}

// Reads the escape behind a backslash; `at` stands on its letter and ends on its last character.
char ReadEscape(std::string_view line, std::size_t& at) {
  if (at >= line.size()) throw NotPossible("a quote isn't closed");
  switch (line[at]) {
    case '"':
    case '\\':
      return line[at];
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'x':
      if (at + 2 < line.size() && HexDigit(line[at + 1]) >= 0 && HexDigit(line[at + 2]) >= 0) {
        const int value = HexDigit(line[at + 1]) * 16 + HexDigit(line[at + 2]);
        at += 2;
        return static_cast<char>(value);
      }
      break;
    default:
      break;
  }
  throw NotPossible(std::string("unknown escape \\") + line[at]);
}

// Reads a quoted piece from the quote at `at`; ends behind the closing one.
std::string ReadQuoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return text;
    }
    if (line[at] == '\\') {
      ++at;
      text += ReadEscape(line, at);
    } else {
      text += line[at];
    }
  }
  throw NotPossible("a quote isn't closed");
}

}  // namespace

std::vector<Word> SplitWords(std::string_view line) {
  std::vector<Word> words;
  std::size_t at = 0;
  while (true) {
    while (at < line.size() && IsBlank(line[at])) ++at;
    if (at >= line.size() || BeginsComment(line, at)) return words;
    Word word;
    word.begin = at;
    word.quoted = line[at] == '"';
    while (at < line.size() && !IsBlank(line[at]) && !BeginsComment(line, at)) {
      if (line[at] == '"') {
        word.text += ReadQuoted(line, at);
      } else {
        word.text += line[at++];
      }
    }
    word.end = at;
    words.push_back(std::move(word));
  }
}

std::string_view WithoutComment(std::string_view line) {
  const std::vector<Word> words = SplitWords(line);
  if (words.empty()) return {};
  return line.substr(words.front().begin, words.back().end - words.front().begin);
}

std::string Normalised(std::string_view line) {
  std::string result;
  for (const Word& word : SplitWords(line)) {
    if (!result.empty()) result += ' ';
    result += line.substr(word.begin, word.end - word.begin);
  }
  return result;
}

std::string Quote(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result = "\"";
  while (!text.empty()) {
    const std::size_t length = utf8::CharacterLength(text);
    const std::string_view character = text.substr(0, length);
    text.remove_prefix(length);
    if (character == "\"" || character == "\\") {
      result += '\\';
      result += character;
    } else if (character == "\n") {
      result += "\\n";
    } else if (character == "\t") {
      result += "\\t";
    } else if (utf8::IsCharacter(character)) {
      result += character;
    } else {
      const auto byte = static_cast<unsigned char>(character[0]);
      result += "\\x";
      result += digits[byte >> 4];
      result += digits[byte & 15];
    }
  }
  return result + '"';
}

std::optional<std::int64_t> ParseInteger(std::string_view word) {
  const bool negative = word.starts_with('-');
  if (negative) word.remove_prefix(1);
  int base = 10;
  if (word.starts_with("0x") || word.starts_with("0X")) {
    base = 16;
    word.remove_prefix(2);
  }
  if (word.empty() || HexDigit(word[0]) < 0) return {};
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
  if (error != std::errc() || end != word.data() + word.size()) return {};
  return negative ? -value : value;
}

std::optional<double> ParseReal(std::string_view word) {
  if (const auto whole = ParseInteger(word)) return static_cast<double>(*whole);
  double value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (word.empty() || error != std::errc() || end != word.data() + word.size()) return {};
  return value;
}

std::int64_t RequireInteger(const Word& word, std::int64_t low, std::int64_t high) {
  const auto value = ParseInteger(word.text);
  if (!value) throw NotPossible(Quote(word.text) + " is no number");
  if (*value < low || *value > high) throw NotPossible(word.text + " is out of range");
  return *value;
}

int RequireInt(const Word& word) {
  return static_cast<int>(RequireInteger(word, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::uint32_t RequireWord32(std::string_view word) {
  const auto value = ParseInteger(word);
  if (!value) throw NotPossible(Quote(word) + " is no number");
  if (*value < std::numeric_limits<std::int32_t>::min() || *value > std::numeric_limits<std::uint32_t>::max()) {
    throw NotPossible(std::string(word) + " doesn't fit into 32 bits");
  }
  return static_cast<std::uint32_t>(*value);
}

std::optional<int> ParseIndex(const Word& word) {
  if (word.quoted || !word.text.starts_with('#')) return {};
  Word number = word;
  number.text.erase(0, 1);
  return static_cast<int>(RequireInteger(number, 0, std::numeric_limits<int>::max()));
}

std::pair<std::string, std::string> SplitAssignment(const Word& word) {
  const std::size_t sign = word.text.find('=');
  if (word.quoted || sign == std::string::npos) throw NotPossible(Quote(word.text) + " isn't NAME=VALUE");
  return {word.text.substr(0, sign), word.text.substr(sign + 1)};
}

bool IsText(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!utf8::IsCharacter(bytes)) return false;
    bytes.remove_prefix(utf8::CharacterLength(bytes));
  }
  return true;
}

std::vector<std::uint8_t> RequireBytes(const Word& word) {
  if (word.text.size() % 2 != 0) throw NotPossible("an odd number of hexadecimal digits");
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < word.text.size(); i += 2) {
    const int high = HexDigit(word.text[i]);
    const int low = HexDigit(word.text[i + 1]);
    if (high < 0 || low < 0) throw NotPossible(Quote(word.text) + " isn't hexadecimal");
    bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
  }
  return bytes;
}

std::optional<ControlName> ParseControlName(const Word& word) {
  if (word.quoted) return {};
  ControlName name{word.text, {}, 0};
  std::string_view id = word.text;
  if (const std::size_t colon = id.find(':'); colon != std::string_view::npos) {
    const auto dialog = ParseInteger(id.substr(0, colon));
    if (!dialog || *dialog < 0 || *dialog > 0xFFFF) return {};
    name.dialog = static_cast<int>(*dialog);
    id.remove_prefix(colon + 1);
  }
  const auto number = ParseInteger(id);
  if (!number || *number < 0 || *number > 0xFFFF) return {};
  name.id = static_cast<int>(*number);
  return name;
}

std::string Number(double value) {
  std::array<char, 64> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return error == std::errc() ? std::string(digits.data(), end) : std::string();
}

std::string Hexadecimal(std::uint32_t value) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  do {
    result.insert(result.begin(), digits[value & 15]);
    value >>= 4;
  } while (value != 0);
  return "0x" + result;
}

}  // namespace set32
