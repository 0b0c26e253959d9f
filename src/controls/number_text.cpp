#include "controls/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace set32 {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

struct SignAndRest {
  bool negative = false;
  std::string_view rest;
};

SignAndRest TakeSign(std::string_view text) {
  const std::size_t start = text.find_first_not_of(whiteSpace);
  text.remove_prefix(start == std::string_view::npos ? text.size() : start);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return {negative, text};
}

// from_chars gives no value for a number beyond the doubles, so it is told apart here: one with a digit other than 0
// before its point is too great, any other too small.
double BeyondDoubles(std::string_view digits) {
  const std::string_view whole = digits.substr(0, digits.find_first_not_of("0123456789"));
  const bool great = whole.find_first_not_of('0') != std::string_view::npos;
  return great ? std::numeric_limits<double>::infinity() : 0.0;
}

}  // namespace

std::int32_t ReadWholeNumber(std::string_view text) {
  using Limits = std::numeric_limits<std::int32_t>;
  const auto [negative, rest] = TakeSign(text);
  std::int64_t value = 0;
  for (const char character : rest) {
    if (!IsDigit(character)) break;
    value = value * 10 + (character - '0');
    if (value > Limits::max()) return negative ? Limits::min() : Limits::max();
  }
  return static_cast<std::int32_t>(negative ? -value : value);
}

double ReadDecimalNumber(std::string_view text) {
  const auto [negative, rest] = TakeSign(text);
  // from_chars also reads the names of what is no number, and a second sign.
  if (rest.empty() || (!IsDigit(rest.front()) && rest.front() != '.')) return 0.0;
  double value = 0.0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value, std::chars_format::fixed);
  if (error == std::errc::invalid_argument) return 0.0;
  if (error == std::errc::result_out_of_range) value = BeyondDoubles(rest);
  return negative ? -value : value;
}

std::int32_t CutToInt(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (!(value == value)) return 0;
  if (value >= static_cast<double>(Limits::max())) return Limits::max();
  if (value <= static_cast<double>(Limits::min())) return Limits::min();
  return static_cast<std::int32_t>(value);
}

std::string WholeNumberText(std::int32_t number) {
  return std::to_string(number);
}

std::string TwoDecimalsText(double number) {
  if (std::isnan(number)) return "nan";
  if (std::isinf(number)) return number > 0 ? "inf" : "-inf";
  std::array<char, 330> digits{};  // of the greatest double, with sign, point and decimals
  const int length = std::snprintf(digits.data(), digits.size(), "%.2f", number);
  // The process's locale may have another sign for the point, of any length.
  const std::string_view text(digits.data(), static_cast<std::size_t>(length));
  std::string shown(text.substr(0, text.find_first_not_of("0123456789", 1)));
  shown += '.';
  return shown.append(text.substr(text.size() - 2));
}

}  // namespace set32
