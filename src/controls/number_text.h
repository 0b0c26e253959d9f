// Numbers in texts: what a person typed, read without regard to the system's locale, and what an edit shows.
//
// Defined for every text and every double. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace set32 {

// A whole number at the start of a text: blanks, a sign, digits; what follows is ignored. 0 without a digit; a number
// that doesn't fit gives the nearest one that does.
std::int32_t ReadWholeNumber(std::string_view text);

// A decimal number at the start of a text: blanks, a sign, digits with at most one point; what follows is ignored.
// 0.0 without a digit; infinite when it is too great for a double.
double ReadDecimalNumber(std::string_view text);

// The value without its fraction; the nearest whole number there is where it doesn't fit, 0 for no number.
std::int32_t CutToInt(double value);

std::string WholeNumberText(std::int32_t number);

// With two decimals, rounded to the nearest; at most 313 characters. "inf", "-inf" or "nan" for what is no number.
std::string TwoDecimalsText(double number);

}  // namespace set32
