// Fills the placeholders of a text of the string table.
//
// %d and %02d take a number, %s a text, %% is a percent sign. An argument is shown as what it is, whatever letter
// asks for it; a placeholder without an argument, and a percent sign that begins none, stay as they stand. So no text
// of the table, however it was translated, can make this read what isn't there. Any thread.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

namespace set32 {

using FormatArgument = std::variant<std::int32_t, std::string_view>;

std::string FormatArguments(std::string_view pattern, std::initializer_list<FormatArgument> arguments);

template <typename... Arguments>
std::string FormatText(std::string_view pattern, const Arguments&... arguments) {
  return FormatArguments(pattern, {FormatArgument(arguments)...});
}

}  // namespace set32
