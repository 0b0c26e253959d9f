#include "scanner/address.h"

#include <charconv>

namespace set32 {

namespace {

std::uint32_t ReverseBytes(std::uint32_t word) {
  return word << 24 | (word & 0xFF00) << 8 | (word >> 8 & 0xFF00) | word >> 24;
}

}  // namespace

std::optional<std::uint32_t> ParseAddress(std::string_view text) {
  std::uint32_t address = 0;
  for (int field = 0; field < 4; ++field) {
    const std::size_t end = field < 3 ? text.find('.') : text.size();
    if (end == text.npos || end == 0 || end > 3) return {};
    unsigned value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + end, value);
    if (error != std::errc() || stop != text.data() + end || value > 255) return {};
    address = address << 8 | value;
    text.remove_prefix(field < 3 ? end + 1 : end);
  }
  return address;
}

std::string DottedAddress(std::uint32_t address) {
  return std::to_string(address >> 24) + '.' + std::to_string(address >> 16 & 0xFF) + '.' +
         std::to_string(address >> 8 & 0xFF) + '.' + std::to_string(address & 0xFF);
}

AddressHalves SplitAddress(std::uint32_t address) {
  const std::uint32_t reversed = ReverseBytes(address);
  return {reversed >> 16, reversed & 0xFFFF};
}

std::uint32_t JoinAddress(AddressHalves halves) {
  return ReverseBytes(halves.high << 16 | (halves.low & 0xFFFF));
}

}  // namespace set32
