#include "controls/edit_rules.h"

#include <algorithm>

#include "controls/number_text.h"

namespace set32 {

bool IsDecimalText(std::string_view text) {
  if (text.empty() || text.find_first_not_of(" 0123456789.") != std::string_view::npos) return false;
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos || point == 0) return true;
  return text.find('.', point + 1) == std::string_view::npos;
}

std::string EditState::With(std::string_view replacement) const {
  std::string result = text.substr(0, start);
  result.append(replacement).append(text, end);
  return result;
}

void IntEditRules::SetRange(std::int32_t low, std::int32_t high) {
  minValue = low;
  maxValue = high;
  lastGood = low;
}

std::optional<std::string> IntEditRules::Repair(std::string_view text) {
  if (text.size() <= 1) return {};  // an edit being filled: a lone sign may become a number
  std::string shown(text);
  const auto goBack = [&] { shown = WholeNumberText(lastGood); };

  if (shown.find_first_not_of("-1234567890") != std::string::npos) goBack();
  if (shown.find('-', 1) != std::string::npos) goBack();
  // Takes away leading zeros, the sign of -0, and the digits of a number that doesn't fit.
  shown = WholeNumberText(ReadWholeNumber(shown));
  if (const std::int32_t value = ReadWholeNumber(shown); value < minValue || value > maxValue) goBack();

  lastGood = ReadWholeNumber(shown);
  if (shown == text) return {};
  return shown;
}

void IntEditRules::Note(std::string_view text) {
  IntEditRules judged = *this;
  if (!judged.Repair(text)) *this = judged;
}

void RealEditRules::SetRange(double a, double b) {
  minValue = std::min(a, b);
  maxValue = std::max(a, b);
}

bool RealEditRules::Allows(std::string_view text) const {
  const std::string_view allowed = minValue < 0 ? "-0123456789. " : "0123456789. ";
  return text.find_first_not_of(allowed) == std::string_view::npos;
}

EditVerdict RealEditRules::Judge(const EditState& before, std::string_view added) const {
  if (!Allows(added)) return EditVerdict::foreign;
  const std::string after = before.With(added);
  return after.size() <= longestText && Accepts(after) ? EditVerdict::taken : EditVerdict::refused;
}

bool RealEditRules::Accepts(std::string_view text) const {
  if (std::ranges::count(text, '.') > 1 || std::ranges::count(text, '-') > 1) return false;
  return ReadDecimalNumber(text) <= maxValue;
}

}  // namespace set32
