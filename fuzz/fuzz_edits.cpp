// Random keys and pastes over the numeric edits' rules: no text may come about that the rules exclude, a repair must
// come to rest, and no text of a string or number may lead a reader out of it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "controls/edit_rules.h"
#include "controls/format.h"
#include "controls/number_text.h"

namespace {

using namespace set32;

void Check(bool holds) {
  if (!holds) std::abort();
}

// The bytes of an input as a sequence of choices.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  bool More() const { return !rest_.empty(); }
  std::size_t Below(std::size_t bound) {
    if (rest_.empty() || bound == 0) return 0;
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte % bound;
  }
  std::string_view Text(std::size_t most) {
    const std::string_view text = rest_.substr(0, Below(most + 1));
    rest_.remove_prefix(std::min(text.size(), rest_.size()));
    return text;
  }

 private:
  std::string_view rest_;
};

void WalkRealEdit(Choices choices) {
  RealEditRules rules;
  constexpr double limits[] = {-100, -0.5, 0, 0.3, 9.99, 1000, 1e308};
  rules.SetRange(limits[choices.Below(std::size(limits))], limits[choices.Below(std::size(limits))]);
  constexpr std::string_view keys = "0123456789.- x\b";
  EditState state;
  while (choices.More()) {
    state.start = choices.Below(state.text.size() + 1);
    state.end = state.start + choices.Below(state.text.size() - state.start + 1);
    const bool paste = choices.Below(4) == 0;
    const std::string_view added = paste ? choices.Text(200) : keys.substr(choices.Below(keys.size()), 1);
    const EditVerdict verdict = rules.Judge(state, added);
    if (verdict == EditVerdict::taken) {
      state.text = state.With(added);
      Check(rules.Allows(state.text));
      Check(state.text.size() <= RealEditRules::longestText);
      Check(std::ranges::count(state.text, '.') <= 1 && std::ranges::count(state.text, '-') <= 1);
      Check(ReadDecimalNumber(state.text) <= rules.maxValue);
      Check(state.text.empty() || rules.minValue < 0 || IsDecimalText(state.text));
    } else if (verdict == EditVerdict::refused) {
      state.text = state.With("");
    }
  }
}

void WalkIntEdit(Choices choices) {
  IntEditRules rules;
  constexpr std::int32_t limits[] = {-2147483647 - 1, -100, 0, 10, 100, 2147483647};
  rules.SetRange(limits[choices.Below(std::size(limits))], limits[choices.Below(std::size(limits))]);
  std::string text;
  while (choices.More()) {
    text.insert(choices.Below(text.size() + 1), choices.Text(24));
    if (const auto shown = rules.Repair(text)) text = *shown;
    Check(!rules.Repair(text));
    Check(text.size() <= 1 || WholeNumberText(ReadWholeNumber(text)) == text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WalkRealEdit({data, size});
  WalkIntEdit({data, size});
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CutToInt(ReadDecimalNumber(text));
  FormatText(text, 1, text.substr(0, 8), -1);
  return 0;
}
