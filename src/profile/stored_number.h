// Numbers out of text by the rules of the standard library's strtoul and strtod, whatever locale the host has set and
// however wide its long is.
#pragma once

#include <cstdint>
#include <string_view>

namespace set32 {

// Leading blanks, a sign, with radix 16 also 0x; stops at the first character that is no digit. Without a digit 0.
// What is past 32 bits becomes 0xFFFFFFFF; a minus sign gives the negative number's 32 bits.
std::uint32_t ParseUnsigned(std::string_view text, std::uint32_t radix);

// Leading blanks, a sign, decimal or hexadecimal digits with an exponent, "inf" and "nan". Without a number 0; what
// is too large is an infinity, what is too small is 0.
double ParseDouble(std::string_view text);

}  // namespace set32
