#include "profile/stored_number.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace set32 {

namespace {

bool TakeSign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

std::string_view SkipBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

// Takes "0x" off where a digit follows it (with `point` also a point); otherwise the 0 alone is the number.
bool TakeHexPrefix(std::string_view& text, bool point) {
  if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return false;
  const std::string_view allowed = "0123456789abcdefABCDEF.";
  if (allowed.substr(0, allowed.size() - (point ? 0 : 1)).find(text[2]) == std::string_view::npos) return false;
  text.remove_prefix(2);
  return true;
}

// Whether a number that a double can't hold is too large, not too small: the power of its first digit that isn't 0
// says so, and its exponent.
bool IsTooLarge(std::string_view number, bool hexadecimal) {
  const std::size_t exponentAt = number.find_first_of(hexadecimal ? "pP" : "eE");
  const std::string_view mantissa = number.substr(0, exponentAt);
  const std::size_t point = mantissa.find('.');
  const std::size_t whole = point == std::string_view::npos ? mantissa.size() : point;
  const std::size_t first = mantissa.find_first_not_of("0.");
  long long power = static_cast<long long>(whole) - static_cast<long long>(first);
  if (hexadecimal) power *= 4;
  if (exponentAt == std::string_view::npos) return power > 0;

  std::string_view exponent = number.substr(exponentAt + 1);
  const bool negative = TakeSign(exponent);
  long long value = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
  if (read.ec != std::errc()) return !negative;
  return power + (negative ? -value : value) > 0;
}

}  // namespace

std::uint32_t ParseUnsigned(std::string_view text, std::uint32_t radix) {
  text = SkipBlanks(text);
  const bool negative = TakeSign(text);
  if (radix == 16) TakeHexPrefix(text, false);
  std::uint32_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number, static_cast<int>(radix));
  if (read.ec == std::errc::result_out_of_range) return std::numeric_limits<std::uint32_t>::max();
  if (read.ec != std::errc()) return 0;
  return negative ? 0 - number : number;
}

double ParseDouble(std::string_view text) {
  text = SkipBlanks(text);
  const bool negative = TakeSign(text);
  if (text.starts_with('-')) return 0.0;  // a second sign, which from_chars would take
  const bool hexadecimal = TakeHexPrefix(text, true);
  double number = 0.0;
  const auto format = hexadecimal ? std::chars_format::hex : std::chars_format::general;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number, format);
  if (read.ec == std::errc::result_out_of_range) {
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(read.ptr - text.data()));
    number = IsTooLarge(digits, hexadecimal) ? std::numeric_limits<double>::infinity() : 0.0;
  } else if (read.ec != std::errc()) {
    return 0.0;
  }
  return negative ? -number : number;
}

}  // namespace set32
