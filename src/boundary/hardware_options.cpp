#include "boundary/hardware_options.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

namespace set32 {

namespace {

// Takes a number off the text, a comma before the next one with it.
std::optional<int> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (text.starts_with(',')) {
    text.remove_prefix(1);
  } else {
    text = {};
  }
  return number;
}

}  // namespace

std::optional<Point> HardwareOptions::DialogPlace() const {
  const std::string text = file_.Read(hardware_key::dialogPlace);
  std::string_view rest = text;
  const std::optional<int> x = TakeNumber(rest);
  const std::optional<int> y = TakeNumber(rest);
  if (!x || !y) return std::nullopt;
  return Point{*x, *y};
}

bool HardwareOptions::WriteDialogPlace(const Rect& place) const {
  std::string text;
  for (const int edge : {place.left, place.top, place.right, place.bottom}) {
    if (!text.empty()) text += ',';
    text += std::to_string(edge);
  }
  return file_.Write(hardware_key::dialogPlace, text);
}

}  // namespace set32
