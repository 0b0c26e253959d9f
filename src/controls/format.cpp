#include "controls/format.h"

#include <algorithm>

namespace set32 {

namespace {

struct Placeholder {
  bool valid = false;
  std::size_t length = 0;  // with the percent sign
  std::size_t width = 0;   // 0 to 9
  bool zeros = false;
  char letter = 0;
};

// What stands behind a percent sign: at most a 0, a width of one digit, and a letter.
Placeholder Parse(std::string_view text) {
  Placeholder found;
  std::size_t at = 1;
  const auto here = [&] { return at < text.size() ? text[at] : '\0'; };
  if (here() == '0') {
    found.zeros = true;
    ++at;
  }
  if (here() >= '1' && here() <= '9') found.width = static_cast<std::size_t>(text[at++] - '0');
  if (here() == 'l') ++at;
  found.letter = here();
  found.length = at + 1;
  found.valid = found.letter == 'd' || found.letter == 's';
  return found;
}

std::string Padded(std::string text, const Placeholder& placeholder) {
  if (text.size() >= placeholder.width) return text;
  const bool zeros = placeholder.zeros && placeholder.letter == 'd';
  const std::size_t at = zeros && text.starts_with('-') ? 1 : 0;  // zeros go behind the sign
  return text.insert(at, placeholder.width - text.size(), zeros ? '0' : ' ');
}

std::string Shown(const FormatArgument& argument) {
  if (const auto* number = std::get_if<std::int32_t>(&argument)) return std::to_string(*number);
  return std::string(std::get<std::string_view>(argument));
}

}  // namespace

std::string FormatArguments(std::string_view pattern, std::initializer_list<FormatArgument> arguments) {
  std::string result;
  const auto* next = arguments.begin();
  while (!pattern.empty()) {
    const std::size_t plain = std::min(pattern.find('%'), pattern.size());
    result.append(pattern.substr(0, plain));
    pattern.remove_prefix(plain);
    if (pattern.empty()) break;
    if (pattern.starts_with("%%")) {
      result += '%';
      pattern.remove_prefix(2);
      continue;
    }
    const Placeholder placeholder = Parse(pattern);
    if (!placeholder.valid || next == arguments.end()) {
      result += '%';
      pattern.remove_prefix(1);
      continue;
    }
    result += Padded(Shown(*next++), placeholder);
    pattern.remove_prefix(placeholder.length);
  }
  return result;
}

}  // namespace set32
