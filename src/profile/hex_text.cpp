#include "profile/hex_text.h"

#include <algorithm>
#include <array>

namespace set32 {

namespace {

constexpr std::uint8_t foreign = 0xFF;

// The value of each character as a digit.
constexpr std::array<std::uint8_t, 256> digitValues = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(foreign);
  for (std::uint8_t i = 0; i < 10; ++i) values[static_cast<std::size_t>('0') + i] = i;
  for (std::uint8_t i = 0; i < 6; ++i) {
    values[static_cast<std::size_t>('A') + i] = static_cast<std::uint8_t>(10 + i);
    values[static_cast<std::size_t>('a') + i] = static_cast<std::uint8_t>(10 + i);
  }
  return values;
}();

std::uint8_t DigitValue(char digit) {
  return digitValues[static_cast<std::uint8_t>(digit)];
}

}  // namespace

std::string EncodeHex(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const std::uint8_t byte : bytes) {
    text += digits[byte >> 4];
    text += digits[byte & 0x0F];
  }
  return text;
}

std::size_t CountHex(std::string_view text, std::size_t offset) {
  const std::size_t available = text.size() / 2;
  if (available <= offset) return 0;
  if (std::ranges::any_of(text, [](char digit) { return DigitValue(digit) == foreign; })) return 0;
  return available - offset;
}

std::size_t DecodeHex(std::string_view text, std::span<std::uint8_t> out, std::size_t offset) {
  const std::size_t count = std::min(CountHex(text, offset), out.size());
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t digit = 2 * (offset + i);
    out[i] = static_cast<std::uint8_t>(DigitValue(text[digit]) << 4 | DigitValue(text[digit + 1]));
  }
  return count;
}

}  // namespace set32
