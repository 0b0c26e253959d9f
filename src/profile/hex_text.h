// Bytes as hexadecimal text, two digits a byte, in memory order. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace set32 {

// Upper-case digits.
std::string EncodeHex(std::span<const std::uint8_t> bytes);

// Either case is read; a last odd digit is no byte. Bytes past the offset go into `out`, as many as fit; what isn't
// reached stays. Result: bytes stored; 0, with nothing touched, where any character of the whole text is foreign.
std::size_t DecodeHex(std::string_view text, std::span<std::uint8_t> out, std::size_t offset);

// How many bytes there are past the offset, 0 where a character is foreign.
std::size_t CountHex(std::string_view text, std::size_t offset);

}  // namespace set32
