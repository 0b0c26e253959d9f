// Network addresses as the scanners' code needs them. IPv4, in host order: a.b.c.d is a * 2^24 + ... + d.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace set32 {

// Four decimal fields of 0 to 255, three digits at most, with single dots between; nothing for any other text.
std::optional<std::uint32_t> ParseAddress(std::string_view text);

std::string DottedAddress(std::uint32_t address);

// How a list record holds an address: both halves in the order of the address's bytes, low byte first.
struct AddressHalves {
  std::uint32_t high = 0;  // third field + fourth field * 256
  std::uint32_t low = 0;   // first field + second field * 256
};

AddressHalves SplitAddress(std::uint32_t address);
// Only the lower 16 bits of each half count.
std::uint32_t JoinAddress(AddressHalves halves);

}  // namespace set32
