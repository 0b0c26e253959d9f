// Random keys and pastes over the numeric edits' rules: no text may come about that the rules exclude, a repair must
// come to rest, and no text of a string or number may lead a reader out of it.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "controls/edit_rules.h"
#include "controls/format.h"
#include "controls/number_text.h"
#include "fuzz/support/choices.h"

namespace {

using namespace set32;
using namespace set32::fuzz;

std::size_t PlaceIn(Choices& choices, std::size_t last) {
  return static_cast<std::size_t>(choices.Below(static_cast<int>(last) + 1));
}

void WalkRealEdit(Choices choices) {
  RealEditRules rules;
  constexpr double limits[] = {-100, -0.5, 0, 0.3, 9.99, 1000, 1e308};
  const auto low = choices.OneOf(limits);
  rules.SetRange(low, choices.OneOf(limits));
  constexpr std::string_view keys = "0123456789.- x\b";
  EditState state;
  while (!choices.IsEmpty()) {
    state.start = PlaceIn(choices, state.text.size());
    state.end = state.start + PlaceIn(choices, state.text.size() - state.start);
    const bool paste = choices.Below(4) == 0;
    const std::string_view added = paste ? choices.Text(200) : keys.substr(PlaceIn(choices, keys.size() - 1), 1);
    const EditVerdict verdict = rules.Judge(state, added);
    if (verdict == EditVerdict::taken) {
      state.text = state.With(added);
      Require(rules.Allows(state.text));
      Require(state.text.size() <= RealEditRules::longestText);
      Require(std::ranges::count(state.text, '.') <= 1 && std::ranges::count(state.text, '-') <= 1);
      Require(ReadDecimalNumber(state.text) <= rules.maxValue);
      Require(state.text.empty() || rules.minValue < 0 || IsDecimalText(state.text));
    } else if (verdict == EditVerdict::refused) {
      state.text = state.With("");
    }
  }
}

void WalkIntEdit(Choices choices) {
  IntEditRules rules;
  constexpr std::int32_t limits[] = {-2147483647 - 1, -100, 0, 10, 100, 2147483647};
  const auto low = choices.OneOf(limits);
  rules.SetRange(low, choices.OneOf(limits));
  std::string text;
  while (!choices.IsEmpty()) {
    const std::size_t at = PlaceIn(choices, text.size());
    text.insert(at, choices.Text(24));
    if (const auto shown = rules.Repair(text)) text = *shown;
    Require(!rules.Repair(text));
    Require(text.size() <= 1 || WholeNumberText(ReadWholeNumber(text)) == text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WalkRealEdit(Choices({data, size}));
  WalkIntEdit(Choices({data, size}));
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CutToInt(ReadDecimalNumber(text));
  FormatText(text, 1, text.substr(0, 8), -1);
  return 0;
}
